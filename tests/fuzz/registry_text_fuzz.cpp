// A registry file that is accepted is written back byte for byte, and still readable after a change.
#include <string>

#include "fuzz/fuzz.h"
#include "platform/common/registry_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tidvane;
    const std::string bytes(fuzz::textOf(data, size));
    platform::RegistryTextFile file;
    platform::RegistryTextError error;
    if (!file.read(bytes, error)) return 0;
    fuzz::require(file.serialize() == bytes, "an unchanged file is written as it was read");

    const platform::RegistryKeyPtr root = file.root();
    root->findOrAdd("Tidvane Fuzz")->setText("name", "a \"text\" with \\ and \x01");
    const std::string changed = file.serialize();
    platform::RegistryTextFile again;
    fuzz::require(again.read(changed, error), "a changed file can be read");
    return 0;
}
