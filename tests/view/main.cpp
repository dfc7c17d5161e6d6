#include <gtest/gtest.h>

#include "view/display_fixture.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::AddGlobalTestEnvironment(new tidvane::tests::DisplayEnvironment);
    return RUN_ALL_TESTS();
}
