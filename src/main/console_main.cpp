// The entry point of the console front end.
#include <iostream>

#include "console/console.h"

int main(int count, char** arguments) {
    std::ios::sync_with_stdio(false);
    return tidvane::console::consoleMain(count, arguments, std::cout, std::cerr);
}
