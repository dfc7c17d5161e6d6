// The folders of one browser, as its location window has them, and what tasks do in them.
#pragma once

#include <string>

#include "settings/browser_dir_form.h"
#include "tasks/cleaning_task.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

// Panel 1 has no blank in front of the dots here.
inline constexpr BeginWords kBrowserWords{true, "...", false};

class BrowserFolders {
public:
    BrowserFolders(settings::Program& program, const CleaningTask& task);

    // The window says that the folders are known. Where it does not, every worker but one ends without a word and its
    // row stays at "running": intended.
    bool known() const { return form_ != nullptr && form_->usable.ticked(); }

    // The texts of the boxes; empty where the program may not work in that folder. But for Firefox the profile and the
    // second folder end in a backslash, since the names of files are joined to them as they are.
    std::string profile() const { return text(settings::BrowserBox::Profile, true); }
    std::string second() const { return text(settings::BrowserBox::Second, true); }
    std::string cache() const { return text(settings::BrowserBox::Cache, false); }
    // The same, for a task that joins names to the cache folder.
    std::string cacheToJoin() const { return text(settings::BrowserBox::Cache, true); }

private:
    std::string text(settings::BrowserBox box, bool joined) const;

    settings::Program& program_;
    settings::BrowserDirForm* form_;
};

// A folder and a name below it, joined as they are; empty where there is no folder, so that nothing below it is looked
// for, removed or emptied.
std::string below(const std::string& folder, const std::string& name);
std::string belowAppData(settings::Program& program, const std::string& name);
std::string belowLocalAppData(settings::Program& program, const std::string& name);

// Removes by the chosen method, and empties; an empty path does nothing.
void kill(settings::Program& program, const std::string& pathOrMask);
void purge(settings::Program& program, const std::string& folder);

}  // namespace tidvane::tasks
