// Files and folders that are dropped on a widget by the file manager.
#include <wx/dnd.h>

#include <utility>

#include "view/form_window.h"
#include "view/text.h"

namespace tidvane::view {

namespace {

class FileDrop final : public wxFileDropTarget {
public:
    explicit FileDrop(std::function<void(const wxArrayString&)> what) : what_(std::move(what)) {}
    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& names) override {
        what_(names);
        return true;
    }

private:
    std::function<void(const wxArrayString&)> what_;
};

}  // namespace

void FormWindow::onFilesDropped(wxWindow* widget, std::function<void(const std::vector<std::string>&)> what) {
    widget->SetDropTarget(new FileDrop([this, widget, what = std::move(what)](const wxArrayString& names) {
        std::vector<std::string> paths;
        for (const wxString& name : names) paths.push_back(fromNative(name));
        // Behind the end of the drop: a question would hold up the file manager until it is answered.
        widget->CallAfter([this, what, paths] { act([&] { what(machinePathsOf ? machinePathsOf(paths) : paths); }); });
    }));
}

}  // namespace tidvane::view
