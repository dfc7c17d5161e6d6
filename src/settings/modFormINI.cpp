#include "settings/modFormINI.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/list_controls.h"
#include "forms/simple_controls.h"
#include "forms/text_box.h"
#include "settings/sentences.h"

namespace tidvane::settings {

namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kStoredLineBreak = "~|~";

// Buffer sizes in bytes, the closing NUL included.
constexpr std::size_t kControlBuffer = 256;
constexpr std::size_t kKeyBuffer = 255;
constexpr std::size_t kWindowNumberBuffer = 60;

[[noreturn]] void fail(long number, const std::string& description) {
    throw base::RuntimeError(number, "modFormINI", description);
}

double toDouble(const std::string& value, const base::Locale& locale) {
    const auto number = base::parseNumber(value, locale);
    if (!number) fail(13, "Type mismatch");
    return *number;
}

int toListIndex(const std::string& value, const base::Locale& locale) {
    if (const auto index = base::toInt16(value, locale)) return *index;
    (void)toDouble(value, locale);  // tells a word from a number that does not fit
    fail(6, "Overflow");
}

int toValue(const std::string& value, const base::Locale& locale) {
    const double whole = std::floor(toDouble(value, locale));
    if (!(whole >= INT16_MIN && whole <= INT16_MAX)) fail(6, "Overflow");
    return static_cast<int>(whole);
}

void assign(forms::Control& control, const std::string& value, const base::Locale& locale) {
    switch (control.kind) {
        case forms::ControlKind::TextBox:
            static_cast<forms::TextBox&>(control).setText(base::replaceAll(value, kStoredLineBreak, kLineBreak));
            break;
        // Nobody writes a key for a list box; one that was put into the file by hand is taken all the same.
        case forms::ControlKind::ListBox:
            static_cast<forms::ListBox&>(control).setListIndex(toListIndex(value, locale));
            break;
        case forms::ControlKind::ComboBox:
            static_cast<forms::ComboBox&>(control).setListIndex(toListIndex(value, locale));
            break;
        case forms::ControlKind::CheckBox: {
            const int state = toValue(value, locale);
            if (state < 0 || state > 2) fail(380, "Invalid property value");
            static_cast<forms::CheckBox&>(control).Value = state;
            break;
        }
        case forms::ControlKind::OptionButton:
            static_cast<forms::OptionButton&>(control).setValue(toValue(value, locale));
            break;
        default:
            break;
    }
}

std::string storedValue(const forms::Control& control) {
    switch (control.kind) {
        case forms::ControlKind::TextBox:
            return base::replaceAll(static_cast<const forms::TextBox&>(control).Text(), kLineBreak, kStoredLineBreak);
        case forms::ControlKind::ComboBox:
            return base::numberText(std::int64_t{static_cast<const forms::ComboBox&>(control).ListIndex()});
        case forms::ControlKind::CheckBox:
            return base::numberText(std::int64_t{static_cast<const forms::CheckBox&>(control).Value.get()});
        case forms::ControlKind::OptionButton:
            return base::numberText(std::int64_t{static_cast<const forms::OptionButton&>(control).value()});
        default:
            return {};
    }
}

bool isRestored(const forms::Control& control) {
    switch (control.kind) {
        case forms::ControlKind::TextBox:
        case forms::ControlKind::ListBox:
        case forms::ControlKind::ComboBox:
        case forms::ControlKind::CheckBox:
        case forms::ControlKind::OptionButton:
            return true;
        default:
            return false;
    }
}

// A value that goes on behind a lone line break would be read as its first line alone, and its other lines as lines of
// the file: those must neither open a section nor set a key.
bool writesOtherKeys(std::string_view value) {
    for (std::size_t end = value.find_first_of("\r\n"); end != std::string_view::npos;
         end = value.find_first_of("\r\n")) {
        value.remove_prefix(end + 1);
        const std::string_view line = value.substr(0, value.find_first_of("\r\n"));
        if (line.find_first_of("[=") != std::string_view::npos) return true;
    }
    return false;
}

// Lines that "add" empties; what comes back there does nothing.
constexpr std::array<std::string_view, 3> kEntryLines{"txtAddFolderPath", "txtAddFilePath", "txtSearchMask"};

// Buttons and further text boxes may stand between a box and its label.
std::string captionOf(const std::vector<forms::Control*>& controls, std::size_t place) {
    const std::string& name = controls[place]->Name;
    while (place-- > 0) {
        const forms::Control& before = *controls[place];
        switch (before.kind) {
            case forms::ControlKind::Label:
            case forms::ControlKind::CheckBox:
            case forms::ControlKind::OptionButton: {
                std::string caption = before.Caption;
                if (!caption.empty() && caption.back() == ':') caption.pop_back();
                return caption.empty() ? name : caption;
            }
            case forms::ControlKind::TextBox:
            case forms::ControlKind::Image:
            case forms::ControlKind::CommandButton:
            case forms::ControlKind::ThemedButton:
                break;
            default:
                return name;
        }
    }
    return name;
}

WindowNumber windowNumber(std::string key, forms::Property<int>& property) {
    return {std::move(key), [&property] { return property.get(); }, [&property](int value) { property = value; }};
}

}  // namespace

std::string GetINIPath(const Program& program) {
    return program.inProgramFolder("td_config.ini");
}

bool plainFileExists(Program& program, const std::string& path) {
    namespace attribute = platform::attribute;
    unsigned attributes = 0;
    return !path.empty() && platform::ok(program.platform.files.GetAttributes(path, attributes)) &&
           (attributes & (attribute::Hidden | attribute::System | attribute::Directory)) == 0;
}

std::string profileKey(const forms::Control& control) {
    if (!control.Index) return control.Name;
    return control.Name + "(" + std::to_string(*control.Index) + ")";
}

bool LoadFormINI(Program& program, forms::Form& form) {
    const std::string file = GetINIPath(program);
    if (!plainFileExists(program, file)) return false;
    for (forms::Control* control : form.Controls()) {
        if (!isRestored(*control)) continue;
        const std::string value = program.platform.profiles.GetPrivateProfileStringA(form.Name, profileKey(*control),
                                                                                     "", kControlBuffer, file);
        // A missing key and an empty value are the same: the control keeps its state.
        if (!value.empty()) assign(*control, value, program.locale());
    }
    return true;
}

bool LoadFormINISkippingErrors(Program& program, forms::Form& form) {
    try {
        return LoadFormINI(program, form);
    } catch (const base::RuntimeError&) {
        return true;
    }
}

void SaveFormINI(Program& program, forms::Form& form) {
    platform::ProfileFiles::Values values;
    for (const forms::Control* control : form.Controls()) {
        const std::string value = storedValue(*control);
        // An emptied text box keeps its old key, and the text comes back: intended.
        if (value.empty()) continue;
        if (writesOtherKeys(value)) {
            program.display.warn(sentence(program, Sentence::SeveralLinesInBox, {control->Name}));
            continue;
        }
        values.emplace_back(profileKey(*control), value);
    }
    (void)program.platform.profiles.WriteValues(form.Name, values, GetINIPath(program));
}

std::vector<EmptiedBox> emptiedBoxes(Program& program, const forms::Form& form) {
    std::vector<EmptiedBox> emptied;
    const auto& controls = form.Controls();
    for (std::size_t place = 0; place < controls.size(); ++place) {
        const forms::Control& control = *controls[place];
        if (control.kind != forms::ControlKind::TextBox ||
            !static_cast<const forms::TextBox&>(control).Text().empty()) {
            continue;
        }
        if (std::find(kEntryLines.begin(), kEntryLines.end(), control.Name) != kEntryLines.end()) continue;
        const std::string stored = ReadProfileValue(program, GetINIPath(program), form.Name, profileKey(control));
        if (!stored.empty()) emptied.push_back({captionOf(controls, place), stored});
    }
    return emptied;
}

void tellOfEmptiedBoxes(Program& program, const forms::Form& form) {
    for (const EmptiedBox& box : emptiedBoxes(program, form)) {
        program.display.warn(sentence(program, Sentence::BoxWasEmptied, {box.caption, box.stored}));
    }
}

std::string ReadINIKey(Program& program, const std::string& file, const std::string& section, const std::string& key) {
    std::string value = program.platform.profiles.GetPrivateProfileStringA(section, key, "", kKeyBuffer, file);
    return value.empty() ? std::string(kKeyBuffer, '\0') : value;
}

std::string ReadProfileValue(Program& program, const std::string& file, const std::string& section,
                             const std::string& key) {
    return program.platform.profiles.GetPrivateProfileStringA(section, key, "", kKeyBuffer, file);
}

bool WriteProfileValue(Program& program, const std::string& file, const std::string& section, const std::string& key,
                       const std::string& value) {
    return program.platform.profiles.WritePrivateProfileStringA(section, key, value, file);
}

std::vector<WindowNumber> rectangleOf(forms::Form& form) {
    return {windowNumber("Left", form.Left), windowNumber("Top", form.Top), windowNumber("Height", form.Height),
            windowNumber("Width", form.Width)};
}

std::vector<WindowNumber> positionOf(forms::Form& form) {
    return {windowNumber("Left", form.Left), windowNumber("Top", form.Top)};
}

void loadWindowNumbers(Program& program, const std::string& section, const std::vector<WindowNumber>& numbers,
                       bool minimized) {
    const base::Locale& locale = program.locale();
    // The default is a word, so that a missing key never reads as a number.
    const std::string& word = minimized ? locale.trueText : locale.falseText;
    for (const WindowNumber& number : numbers) {
        const std::string text = program.platform.profiles.GetPrivateProfileStringA(
            section, number.key, word, kWindowNumberBuffer, GetINIPath(program));
        if (!base::isNumeric(text, locale)) continue;
        if (const auto value = base::toInt16(text, locale)) number.apply(*value);
    }
}

void saveWindowNumbers(Program& program, const std::string& section, const std::vector<WindowNumber>& numbers) {
    platform::ProfileFiles::Values values;
    for (const WindowNumber& number : numbers) {
        values.emplace_back(number.key, base::numberText(std::int64_t{number.read()}));
    }
    (void)program.platform.profiles.WriteValues(section, values, GetINIPath(program));
}

}  // namespace tidvane::settings
