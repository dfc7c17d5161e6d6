#include "app/plug_in_files.h"

#include "base/numbers.h"
#include "base/text.h"
#include "platform/common/directory_lookup.h"
#include "settings/modFormINI.h"

namespace tidvane::app {

namespace {
constexpr const char* kPlugSection = "PlugIns";
}

std::string plugInFolder(const settings::Program& program) {
    return program.inProgramFolder("PlugIns\\");
}

std::vector<std::string> plugInFiles(settings::Program& program, const std::string& folder) {
    return platform::findMatches(program.platform.files, folder + "*.tdp", platform::attribute::Directory);
}

std::string plugInName(const std::string& fileName) {
    return fileName.substr(0, fileName.rfind('.'));
}

std::optional<bool> storedPlugTick(settings::Program& program, const std::string& ticksFile, const std::string& name) {
    const base::Locale& locale = program.locale();
    const std::string value = settings::ReadProfileValue(program, ticksFile, kPlugSection, name);
    if (const auto number = base::parseNumber(value, locale)) return *number != 0;
    if (base::equalNoCase(value, "True") || base::equalNoCase(value, locale.trueText)) return true;
    if (base::equalNoCase(value, "False") || base::equalNoCase(value, locale.falseText)) return false;
    return std::nullopt;
}

bool storePlugTick(settings::Program& program, const std::string& ticksFile, const std::string& name,
                   const char* value) {
    return settings::WriteProfileValue(program, ticksFile, kPlugSection, name, value);
}

}  // namespace tidvane::app
