#include "console/stored_windows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/control_lookup.h"
#include "settings/modFormINI.h"
#include "settings/modLanguage.h"

namespace tidvane::console {

namespace {

using forms::ControlKind;

constexpr std::array kStoredWindows{
    "frmOptions",        "frmMoreToConfigure", "frmResources", "frmIECache",   "frmTempAge",
    "frmManualSearch",   "frmMozillaDir",      "frmOperaDir",  "frmChromeDir", "frmSafariDir",
    "frmIEInDepthClean", "frmPlugsInfo",       "frmWidget",
};

constexpr const char* kLineBreak = "\r\n";
constexpr const char* kStoredLineBreak = "~|~";

std::string pathOf(const forms::Control& control) {
    return control.form().Name + "." + settings::profileKey(control);
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text;
}

bool readNumber(const std::string& value, int least, int most, int& number) {
    const char* end = value.data() + value.size();
    int read = 0;
    const auto [stop, problem] = std::from_chars(value.data(), end, read);
    if (problem != std::errc() || stop != end || read < least || read > most) return false;
    number = read;
    return true;
}

bool assignCombo(forms::ComboBox& combo, const std::string& value, std::string& error) {
    const auto& rows = combo.rows();
    const auto row = std::find(rows.begin(), rows.end(), value);
    int index = static_cast<int>(row - rows.begin());
    if (row == rows.end() && !readNumber(value, -1, combo.ListCount() - 1, index)) {
        error = pathOf(combo) + " has no row \"" + value + "\"; give a row's number from 0 to " +
                std::to_string(combo.ListCount() - 1) + " or one of: " + joined(rows) + ".";
        return false;
    }
    combo.setListIndex(index);
    return true;
}

bool assignText(forms::TextBox& box, const std::string& value, std::string& error) {
    const auto refused = [&box](char letter) {
        return box.keyFilter && !box.keyFilter(static_cast<char32_t>(static_cast<unsigned char>(letter)));
    };
    if (std::any_of(value.begin(), value.end(), refused)) {
        error = pathOf(box) + " takes digits and a comma only; \"" + value + "\" was not set.";
        return false;
    }
    box.setText(base::replaceAll(value, kStoredLineBreak, kLineBreak));
    return true;
}

}  // namespace

std::span<const char* const> storedWindows() {
    return kStoredWindows;
}

bool isStoredControl(const forms::Control& control) {
    // The search wizard empties its log before it stores itself.
    if (control.Name == "txtLog") return false;
    return control.kind == ControlKind::TextBox || control.kind == ControlKind::CheckBox ||
           control.kind == ControlKind::OptionButton || control.kind == ControlKind::ComboBox;
}

std::string valueOf(const forms::Control& control) {
    switch (control.kind) {
        case ControlKind::TextBox: {
            const std::string& text = static_cast<const forms::TextBox&>(control).Text();
            // A file holds a text up to its first NUL.
            return base::replaceAll(text.substr(0, text.find('\0')), kLineBreak, kStoredLineBreak);
        }
        case ControlKind::CheckBox:
            return std::to_string(static_cast<const forms::CheckBox&>(control).Value.get());
        case ControlKind::OptionButton:
            return std::to_string(static_cast<const forms::OptionButton&>(control).value());
        case ControlKind::ComboBox:
            return std::to_string(static_cast<const forms::ComboBox&>(control).ListIndex());
        default:
            return {};
    }
}

void loadLanguages(settings::Program& program) {
    // Every attempt that fails leaves one more window loaded, so that the next one gets further.
    for (std::size_t attempt = 0; attempt <= kStoredWindows.size(); ++attempt) {
        try {
            return settings::LoadAllLanguageFiles(program);
        } catch (const base::RuntimeError&) {
        }
    }
}

void forEachStoredControl(settings::Program& program, const std::function<void(forms::Form&, forms::Control&)>& visit) {
    for (const char* window : kStoredWindows) {
        forms::Form* form = settings::findWindow(program, window);
        if (form == nullptr) continue;
        for (forms::Control* control : form->Controls()) {
            if (isStoredControl(*control)) visit(*form, *control);
        }
    }
}

forms::Control* findStoredControl(settings::Program& program, std::string_view path, std::string& error) {
    const std::size_t dot = path.find('.');
    const std::string_view window = dot == std::string_view::npos ? std::string_view() : path.substr(0, dot);
    const std::string_view name = dot == std::string_view::npos ? path : path.substr(dot + 1);
    std::vector<forms::Control*> found;
    forEachStoredControl(program, [&](forms::Form& form, forms::Control& control) {
        if (!window.empty() && !base::equalNoCase(form.Name, window)) return;
        // A member of an array whose members have names of their own is known by its name too.
        if (base::equalNoCase(settings::profileKey(control), name) || base::equalNoCase(control.Name, name)) {
            found.push_back(&control);
        }
    });
    if (found.size() == 1) return found.front();
    const std::string quoted = "\"" + std::string(path) + "\"";
    if (found.empty()) {
        error = "No window stores a control named " + quoted + "; the command \"settings\" lists all of them.";
    } else {
        std::vector<std::string> names;
        names.reserve(found.size());
        for (const forms::Control* control : found) names.push_back(pathOf(*control));
        error = quoted + " is ambiguous; write one of: " + joined(names) + ".";
    }
    return nullptr;
}

bool assignValue(forms::Control& control, const std::string& value, std::string& error) {
    int number = 0;
    switch (control.kind) {
        case ControlKind::TextBox:
            return assignText(static_cast<forms::TextBox&>(control), value, error);
        case ControlKind::ComboBox:
            return assignCombo(static_cast<forms::ComboBox&>(control), value, error);
        case ControlKind::CheckBox:
            if (!readNumber(value, 0, 2, number)) {
                error = pathOf(control) + " takes 0 (off), 1 (on) or 2 (greyed), not \"" + value + "\".";
                return false;
            }
            static_cast<forms::CheckBox&>(control).Value = number;
            return true;
        case ControlKind::OptionButton:
            if (!readNumber(value, -1, 0, number)) {
                error = pathOf(control) + " takes -1 (selected) or 0, not \"" + value + "\".";
                return false;
            }
            static_cast<forms::OptionButton&>(control).setValue(number);
            return true;
        default:
            error = pathOf(control) + " has no value.";
            return false;
    }
}

}  // namespace tidvane::console
