// What the fuzz targets share: parts of an input, and the check that stops a run.
//
// Each target defines LLVMFuzzerTestOneInput. With Clang's libFuzzer it is driven for new inputs (./test --fuzz); with
// any compiler replay_main.cpp drives it over the kept corpus, as an ordinary test.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tidvane::fuzz {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Takes everything up to the next line feed off; the rest follows it.
inline std::string_view takePart(std::string_view& rest) {
    const std::size_t end = rest.find('\n');
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return part;
}

// A property that must hold for every input.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

}  // namespace tidvane::fuzz
