// The list of plug-ins, their ticks, and what each says of itself.
#include <algorithm>

#include "app/plug_in_files.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "console/commands.h"
#include "console/console_display.h"
#include "console/instance_lock.h"
#include "console/plug_in_choice.h"
#include "console/tool_program.h"
#include "plugins/dPlugCleaner.h"
#include "plugins/frmPlugsInfo.h"
#include "settings/modFormINI.h"

namespace tidvane::console {

namespace {

constexpr const char* kAll = "all";

// As a key of a profile file the name would end at its sign, or be a comment or a section.
bool canStandAsKey(const std::string& name) {
    return !name.empty() && name.find('=') == std::string::npos && name.front() != ';' && name.front() != '[';
}

class Plugins {
public:
    Plugins(Session& session, const Options& options)
        : session_(session),
          options_(options.pluginList),
          tool_(session, options),
          program_(tool_.program()),
          plugIn_(program_),
          names_(plugInNames(program_)) {}

    int run();

private:
    // The plug-ins that a word of the command line stands for. False, and the error is told: none.
    bool resolve(const std::vector<std::string>& words, bool allowAll, std::vector<std::string>& names);
    bool take(const std::string& name);
    int store(const std::vector<std::string>& names, bool ticked);
    int show(const std::string& name);
    void list();

    [[nodiscard]] std::string ticksFile() const { return program_.inProgramFolder(app::kPlugTicksFile); }

    Session& session_;
    const PluginsOptions& options_;
    ToolProgram tool_;
    settings::Program& program_;
    plugins::dPlugCleaner plugIn_;
    std::vector<std::string> names_;
};

bool Plugins::resolve(const std::vector<std::string>& words, bool allowAll, std::vector<std::string>& names) {
    for (const std::string& word : words) {
        if (const std::string* name = findName(names_, word)) {
            names.push_back(*name);
        } else if (allowAll && base::equalNoCase(word, kAll)) {
            names.insert(names.end(), names_.begin(), names_.end());
        } else {
            session_.err << noSuchPlugIn(names_, word) << std::endl;
            return false;
        }
    }
    return true;
}

bool Plugins::take(const std::string& name) {
    plugIn_.setFilename(app::plugInFolder(program_) + name + ".tdp");
    return plugIn_.IsLoaded();
}

int Plugins::store(const std::vector<std::string>& names, bool ticked) {
    // Past the profile files of the windows, which store nothing here.
    settings::Program storing(session_.platform, tool_.display());
    for (const std::string& name : names) {
        if (app::storePlugTick(storing, ticksFile(), name, ticked ? "1" : "0")) continue;
        session_.err << "The ticks could not be stored; check the rights and the free space of the program folder."
                     << std::endl;
        return exit_status::MachineUnusable;
    }
    return exit_status::Done;
}

int Plugins::show(const std::string& name) {
    if (!take(name)) {
        session_.err << "\"" << name << "\" is no file that a plug-in can be read from." << std::endl;
        return exit_status::Usage;
    }
    try {
        (void)program_.get<plugins::frmPlugsInfo>();
    } catch (const base::RuntimeError&) {
        // A stored value that cannot be assigned: the window stays as far as it came.
    }
    auto& window = program_.get<plugins::frmPlugsInfo>();
    const std::string chosen = settings::ReadProfileValue(program_, settings::GetINIPath(program_), window.Name,
                                                          window.chkEnableEnglishPlugsDesc.Name);
    // Where nobody has chosen, the language of the texts decides.
    if (chosen.empty()) window.chkEnableEnglishPlugsDesc.Value = program_.LangText(100).starts_with("Deutsch") ? 0 : 1;
    window.fill(plugIn_);
    session_.out << "Title:       " << printable(window.txtTitle.Text())
                 << "\nAuthor:      " << printable(window.txtAuthor.Text())
                 << "\nDescription: " << printableLines(window.txtDesc.Text())
                 << "\nWarning:     " << printableLines(window.lblWarning.Caption) << "\n";
    return exit_status::Done;
}

void Plugins::list() {
    std::size_t width = 4;
    for (const std::string& name : names_) width = std::max(width, base::characterCount(name));
    const auto padded = [&](const std::string& name) {
        return name + std::string(width - base::characterCount(name), ' ');
    };
    session_.out << "Ticked  " << padded("Name") << "  Title\n";
    for (const std::string& name : names_) {
        const bool ticked = app::storedPlugTick(program_, ticksFile(), name).value_or(false);
        session_.out << (ticked ? "yes     " : "no      ") << printable(padded(name)) << "  "
                     << (take(name) ? printable(plugIn_.PlugTitle()) : "(no file that can be read)") << "\n";
    }
}

int Plugins::run() {
    std::vector<std::string> ticked;
    std::vector<std::string> unticked;
    std::vector<std::string> shown;
    if (!resolve(options_.tick, true, ticked) || !resolve(options_.untick, true, unticked) ||
        !resolve(options_.info, false, shown)) {
        return exit_status::Usage;
    }
    for (const auto* names : {&ticked, &unticked}) {
        const auto bad = std::find_if_not(names->begin(), names->end(), canStandAsKey);
        if (bad == names->end()) continue;
        session_.err
            << "The tick of \"" << *bad
            << "\" cannot be stored, since its name holds \"=\" or begins with \";\" or \"[\"; rename its file, "
               "or tick it for one run with \"run --plugin\"."
            << std::endl;
        return exit_status::Usage;
    }
    int status = store(ticked, true);
    if (status == exit_status::Done) status = store(unticked, false);
    for (const std::string& name : shown) {
        if (status == exit_status::Done) status = show(name);
    }
    if (shown.empty() && status == exit_status::Done) list();
    session_.out << std::flush;
    return status;
}

}  // namespace

int pluginsCommand(Session& session, const Options& options) {
    InstanceLock lock(session);
    const bool stores = !options.pluginList.tick.empty() || !options.pluginList.untick.empty();
    if (stores && !lock.take()) return exit_status::MachineUnusable;
    return Plugins(session, options).run();
}

}  // namespace tidvane::console
