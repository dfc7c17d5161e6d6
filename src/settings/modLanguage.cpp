#include "settings/modLanguage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/line_input.h"
#include "base/numbers.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/simple_controls.h"
#include "settings/caption_table.h"
#include "settings/file_list.h"
#include "settings/modFormINI.h"

namespace tidvane::settings {

namespace {

// The index takes the first three signs of a line, the fourth is never looked at.
constexpr std::size_t kIndexLength = 3;
constexpr std::size_t kTextStart = 4;
// Fifty times a complete file. More is none of ours, and every window that reloads the texts would go through it again.
constexpr std::uint64_t kReadLimit = 1u << 20u;

// The last text of each index, as it stands in the file; no data where the file does not name the index.
using RawTexts = std::array<std::string_view, LangTable::kSize>;

void readLine(std::string_view line, RawTexts& texts) {
    if (line.find_first_not_of(" \t") == std::string_view::npos || line.front() == ';') return;
    const double number = base::roundHalfEven(base::val(line.substr(0, kIndexLength)));
    if (!(number >= 0 && number < LangTable::kSize)) return;
    texts[static_cast<std::size_t>(number)] = line.substr(std::min(line.size(), kTextStart));
}

std::string entryOf(std::string_view raw, const base::CodePage& codePage) {
    std::string text(raw);
    std::replace(text.begin(), text.end(), '_', '\r');
    return codePage.toUtf8(text);
}

void readFile(Program& program, std::string_view bytes) {
    RawTexts texts{};
    while (!bytes.empty()) readLine(base::takeLine(bytes), texts);
    for (int index = 0; index < LangTable::kSize; ++index) {
        const std::string_view raw = texts[static_cast<std::size_t>(index)];
        if (raw.data() != nullptr) program.LangText.set(index, entryOf(raw, program.codePage()));
    }
}

void assign(forms::Control& control, const CaptionRow& row, const std::string& text) {
    switch (row.slot) {
        case CaptionSlot::Caption:
            control.Caption = text;
            break;
        case CaptionSlot::Tip:
            control.ToolTipText = text;
            break;
        case CaptionSlot::Tab:
            if (control.kind == forms::ControlKind::TabStrip) {
                auto& strip = static_cast<forms::TabStrip&>(control);
                if (row.tab < strip.Tabs()) strip.setTabCaption(row.tab, text);
            }
            break;
    }
}

template <class What>
void eachRow(What what) {
    for (const CaptionRow& row : kCaptionRows) what(row);
    for (const CaptionRow& row : kFurtherCaptionRows) what(row);
}

}  // namespace

std::span<const CaptionRow> captionRows() {
    return kCaptionRows;
}

void ApplyLanguage(Program& program) {
    eachRow([&program](const CaptionRow& row) {
        // A window whose load handler is running is found as it is. The options window loads the files again in its own
        // handler and so comes here a second time, inside the first: both passes run whole.
        forms::Form* form = program.windows.get(row.window);
        if (form == nullptr) return;
        if (forms::Control* control = form->control(row.control)) assign(*control, row, program.LangText(row.text));
    });
}

void captionWindow(const Program& program, forms::Form& form) {
    eachRow([&](const CaptionRow& row) {
        if (form.Name != row.window) return;
        if (forms::Control* control = form.control(row.control)) assign(*control, row, program.LangText(row.text));
    });
}

int LoadLanguageFile(Program& program, const std::string& path) {
    if (!plainFileExists(program, path)) return 1;
    std::string bytes;
    // Ignored on purpose: a file that cannot be read counts as one without entries.
    (void)program.platform.files.ReadFileBytes(path, bytes, kReadLimit);
    // The limit may cut a line in two: half a text is none.
    if (bytes.size() >= kReadLimit) bytes.erase(std::min(bytes.size(), bytes.rfind('\r')));
    readFile(program, bytes);
    try {
        ApplyLanguage(program);
    } catch (const base::RuntimeError&) {
        // A window that could not be loaded ends the pass; the language file was read all the same.
    }
    return 0;
}

void LoadAllLanguageFiles(Program& program) {
    forms::Form* main = program.windows.get("frmMain");
    forms::Control* control = main == nullptr ? nullptr : main->control("File1");
    forms::Form withoutMain("withoutMain");
    forms::FileList ownList(withoutMain, "File1");
    auto& list = control != nullptr && control->kind == forms::ControlKind::FileList
                     ? static_cast<forms::FileList&>(*control)
                     : ownList;
    list.Path = program.programFolder();
    list.Pattern = "*.lng";
    refreshFileList(program, list);
    // A copy: a load handler on the way fills the list anew.
    const std::vector<std::string> names = list.List;
    for (const std::string& name : names) (void)LoadLanguageFile(program, program.inProgramFolder(name));
}

}  // namespace tidvane::settings
