// Fills the language table from the files beside the program and puts its entries into the captions of the windows.
#pragma once

#include <span>
#include <string>

#include "settings/program.h"

namespace tidvane::settings {

// Reads one language file (code page of the system, one entry a line: three digits, any sign, the text) over the table
// and captions the windows. 0: done, also for a file that could not be read to its end; 1: the path is empty or no such
// file exists, and nothing changed.
int LoadLanguageFile(Program& program, const std::string& path);

// Loads all language files of the program's folder, in the order of the main window's file list: the last one wins,
// entry by entry.
void LoadAllLanguageFiles(Program& program);

// Captions every window of the table, and loads those that are not loaded yet. A window or control that does not exist
// is passed over. Throws base::RuntimeError when the load handler of a window does; the rest is then not captioned.
void ApplyLanguage(Program& program);

// Captions one window of the table: for its own load handler, as it may be opened again long behind ApplyLanguage.
void captionWindow(const Program& program, forms::Form& form);

enum class CaptionSlot { Caption, Tip, Tab };

// One assignment: entry `text` goes to the caption, the tool tip or the caption of a tab of a control.
struct CaptionRow {
    const char* window;
    const char* control;
    int text;
    CaptionSlot slot = CaptionSlot::Caption;
    int tab = 0;
};

// All assignments, in the order in which they are made.
std::span<const CaptionRow> captionRows();

}  // namespace tidvane::settings
