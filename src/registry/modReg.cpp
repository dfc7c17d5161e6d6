#include "registry/modReg.h"

#include "base/code_page.h"

namespace tidvane::registry {

std::optional<std::string> ReadRegString(const RegistryServices& services, platform::HKey Root, const std::string& Key,
                                         const std::string& ValueName) {
    constexpr std::uint32_t maximumAllowed = 0x02000000;  // what RegOpenKeyA asks for
    platform::RegistryApi& registry = services.registry;
    platform::HKey key = 0;
    if (registry.RegOpenKeyExA(Root, Key, maximumAllowed, key) != 0) return std::nullopt;

    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::string bytes;
    bool good = registry.RegQueryValueExA(key, ValueName, type, nullptr, size) == 0 && type == platform::kRegSz;
    good = good && registry.RegQueryValueExA(key, ValueName, type, &bytes, size) == 0;
    (void)registry.RegCloseKey(key);
    if (!good) return std::nullopt;
    return base::CodePage(services.system.codePage()).toUtf8(bytes.substr(0, bytes.find('\0')));
}

}  // namespace tidvane::registry
