// A failure that ends more than one routine.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace tidvane::base {

// The numbers are those that the user's scripts and logs know: 5 invalid call, 6 overflow, 13 type mismatch, 28 out of
// stack, 380 invalid value of a property. Caught where the behaviour of a routine says so.
struct RuntimeError : std::exception {
    RuntimeError(long errorNumber, std::string errorSource, std::string errorDescription)
        : number(errorNumber), source(std::move(errorSource)), description(std::move(errorDescription)) {}
    const char* what() const noexcept override { return description.c_str(); }

    long number;
    std::string source;
    std::string description;
};

}  // namespace tidvane::base
