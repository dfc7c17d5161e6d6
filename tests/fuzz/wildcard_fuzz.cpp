// A mask and a name: the three ways of matching agree, and a name always matches itself and "*".
#include "base/wildcard.h"
#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tidvane;
    constexpr std::size_t kLongest = 600;  // twice what a name can have
    if (size > kLongest) return 0;
    std::string_view rest = fuzz::textOf(data, size);
    const std::string_view mask = fuzz::takePart(rest);
    const std::string_view name = rest;

    const bool matches = base::wildcardMatch(mask, name);
    fuzz::require(base::Wildcard(mask).matches(name) == matches, "a mask read once matches as one read each time");
    const base::MaskSet set({"*.tmp", std::string(mask), "~*"});
    bool found = false;
    set.match(name, [&](std::size_t index) { found = found || index == 1; });
    fuzz::require(found == matches, "a mask in a set matches as it does alone");
    if (!name.empty()) fuzz::require(base::wildcardMatch("*", name), "everything matches \"*\"");
    return 0;
}
