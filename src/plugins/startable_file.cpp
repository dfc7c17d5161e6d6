#include "plugins/startable_file.h"

#include "base/text.h"

namespace tidvane::plugins {

std::string startableFile(settings::Program& program, const std::string& name) {
    if (base::isAbsolutePath(name)) return name;
    // A name alone: with a backslash, a slash or a colon in it, it would lead out of the folder.
    if (name.empty() || name.find_first_of("\\/:") != std::string::npos) return {};
    const std::string own = program.inProgramFolder(name);
    return program.platform.files.FileExists(own) ? own : std::string();
}

}  // namespace tidvane::plugins
