// The first window where no machine is named: the Windows systems of this host, of which one is chosen.
#pragma once

#include <wx/dialog.h>

#include <functional>
#include <memory>
#include <string>

#include "view/chooser/sample_dialog.h"
#include "view/chooser/system_rows.h"
#include "view/chooser/words.h"

class wxButton;
class wxDataViewCtrl;
class wxStaticBitmap;
class wxStaticText;

namespace tidvane::view {

class Chooser final : public wxDialog {
public:
    // `last`: the directory that was chosen last. `sampleFolder`: where a sample machine is proposed.
    Chooser(SystemRows rows, Tongue tongue, const std::string& last, std::string sampleFolder);
    ~Chooser() override;
    Chooser(const Chooser&) = delete;
    Chooser& operator=(const Chooser&) = delete;

    // Opens what was chosen. Otherwise a sentence that says why that cannot be; the user may choose again.
    std::function<std::string(const std::string& directory)> onOpen;
    // The user wants none.
    std::function<void()> onCancel;
    CreateSample onCreateSample;

    // One row more is described. False: nothing is left to do.
    bool describeNext();
    [[nodiscard]] const SystemRows& rows() const { return rows_; }
    [[nodiscard]] int selected() const;

private:
    class Model;

    [[nodiscard]] wxString say(Word which) const;
    void makeList();
    void makeEmptyState();
    wxSizer* makeButtons();
    void rowsChanged();
    void select(int row);
    void selectionChanged();
    void open();
    void cancel();
    void openOther();
    void createSample();
    // Without a name it is called as its folder is.
    void addFolder(const std::string& directory, frontend::SystemKind kind, const std::string& name);

    SystemRows rows_;
    Tongue tongue_;
    std::string last_;
    std::string sampleFolder_;
    bool chosenByHand_ = false;  // from then on the selection is the user's
    bool selecting_ = false;
    Model* model_ = nullptr;  // counts its users; the list and we are two
    wxDataViewCtrl* list_ = nullptr;
    wxWindow* empty_ = nullptr;
    wxStaticBitmap* warning_ = nullptr;
    wxStaticText* problem_ = nullptr;
    wxButton* sample_ = nullptr;
    wxButton* open_ = nullptr;
};

}  // namespace tidvane::view
