// Ready-made file masks to pick from.
#pragma once

#include "controls/is_button.h"
#include "forms/form.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/program.h"

namespace tidvane::tools {

class frmSearchMasks : public forms::Form {
public:
    static constexpr const char* kName = "frmSearchMasks";

    explicit frmSearchMasks(settings::Program& program);

    void Form_Load() override;

    forms::Label lblHint{*this, "lblHint", "Wählen Sie die Masken, die in Ihre Liste aufgenommen werden sollen."};
    forms::Label lblSearch{*this, "lblSearch", "Suchen"};
    forms::TextBox txtSearchMasks{*this, "txtSearchMasks"};
    forms::ListBox lstSearchMasks{*this, "lstSearchMasks"};
    forms::Label lblSelected{*this, "lblSelected"};  // "3 / 49"
    controls::isButton cmdSelectAll{*this, "cmdSelectAll", "Alle markieren"};
    controls::isButton cmdDeselectAll{*this, "cmdDeselectAll", "Markierung aufheben"};
    controls::isButton cmdAdd{*this, "cmdAdd", "Hinzufügen"};
    controls::isButton cmdCancel{*this, "cmdCancel", "Abbrechen"};
    forms::Timer tmrSearchMasks{*this, "tmrSearchMasks", 1, true};

private:
    void goToTypedText();
    void addSelected();

    settings::Program& program_;
};

}  // namespace tidvane::tools
