#include "tools/frmSearchMasks.h"

#include "base/text.h"
#include "settings/built_in_masks.h"
#include "settings/frmOptions.h"

namespace tidvane::tools {

frmSearchMasks::frmSearchMasks(settings::Program& program) : Form(kName), program_(program) {
    Caption.design("Dateimasken");
    cmdSelectAll.Click.connect([this] { lstSearchMasks.selectAll(true); });
    cmdDeselectAll.Click.connect([this] { lstSearchMasks.selectAll(false); });
    cmdAdd.Click.connect([this] { addSelected(); });
    cmdCancel.Click.connect([this] { program_.windows.unload(*this); });
    txtSearchMasks.Change.connect([this] { goToTypedText(); });
    tmrSearchMasks.Tick.connect([this] {
        lblSelected.Caption =
            std::to_string(lstSearchMasks.SelCount()) + " / " + std::to_string(lstSearchMasks.ListCount());
    });
}

void frmSearchMasks::Form_Load() {
    const settings::LangTable& text = program_.LangText;
    Caption = text(826);
    lblHint.Caption = text(827);
    lstSearchMasks.ToolTipText = text(827);
    lblSearch.Caption = text(559);
    cmdSelectAll.Caption = text(811);
    cmdDeselectAll.Caption = text(812);
    cmdAdd.Caption = text(351);
    cmdCancel.Caption = text(301);
    for (const char* mask : settings::kBuiltInMasks) lstSearchMasks.AddItem(mask);
}

// Nothing is filtered: the current row goes to the first one that begins so, the marks stay.
void frmSearchMasks::goToTypedText() {
    int row = 0;
    while (row < lstSearchMasks.ListCount() &&
           !base::startsWithNoCase(lstSearchMasks.List(row), txtSearchMasks.Text())) {
        ++row;
    }
    lstSearchMasks.setListIndex(row < lstSearchMasks.ListCount() ? row : -1);
}

// Past the door of the own lists, and doubled where the list has the mask already: intended.
void frmSearchMasks::addSelected() {
    auto& options = program_.get<settings::frmOptions>();
    for (int row = 0; row < lstSearchMasks.ListCount(); ++row) {
        if (lstSearchMasks.Selected(row)) options.lstSearchMasks.AddItem(lstSearchMasks.List(row));
    }
    program_.windows.unload(*this);
}

}  // namespace tidvane::tools
