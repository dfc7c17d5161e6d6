// What is said when a front end's last catch has something.
#pragma once

#include <exception>
#include <string>

namespace tidvane::frontend {

// `removed`: something was removed by then.
inline std::string lastWords(const std::exception& problem, bool removed) {
    return std::string("The program failed (") + problem.what() + "); " +
           (removed ? "what was removed before is removed." : "nothing was removed.");
}

}  // namespace tidvane::frontend
