// Any bytes are a profile file: what is written is read back, and no answer is longer than its buffer.
#include "fuzz/fuzz.h"
#include "platform/common/profile_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tidvane;
    constexpr std::size_t kBuffer = 64;
    const std::string_view file = fuzz::textOf(data, size);

    const std::string sections = platform::profileString(file, std::nullopt, std::nullopt, "", kBuffer);
    fuzz::require(sections.size() < kBuffer, "the list of sections fits the buffer");
    const std::string section = sections.substr(0, sections.find('\0'));
    fuzz::require(platform::profileString(file, section, std::nullopt, "Err", kBuffer).size() < kBuffer,
                  "the list of keys fits the buffer");
    (void)platform::profileSection(file, section, kBuffer);

    const std::string written = platform::withProfileString(file, "Sec", "Key", "a value");
    fuzz::require(platform::profileString(written, "sec", "KEY", "", kBuffer) == "a value",
                  "what was written is read back");
    const std::string gone = platform::withProfileString(written, "Sec", "Key", std::nullopt);
    fuzz::require(gone.size() <= written.size(), "taking a key away adds nothing");
    const std::string without = platform::withProfileString(written, "Sec", std::nullopt, std::nullopt);
    fuzz::require(without.size() <= written.size(), "taking a section away adds nothing");
    return 0;
}
