// Questions in front of what its user may not have meant. Each function answers with the text of a question, or with
// nothing where there is nothing to ask; the front end decides how to ask (a box, an option of the command line).
//
// The models ask some of them by themselves, through Display, so that no front end has to: frmOptions a text with a
// comma, a quotation mark or a line break that is added to an own list, with the entries shown that it would become
// (and it refuses protected places and keys); frmManualSearch a search without a folder, or with a mask that matches
// every file name. For files that a copy would write over with older ones there is settings/newer_files.h.
#pragma once

#include <string>

#include "frontend/front_end.h"
#include "settings/program.h"

namespace tidvane::frontend {

// The junk search is ticked, and masks of it match every file name.
std::string questionOfMasks(settings::Program& program);
// The same as a refusal, of one sentence, where nobody can be asked.
std::string refusalOfMasks(settings::Program& program);

// Lines of list files whose step is ticked come back as other entries than they read.
std::string questionOfChangedLines(settings::Program& program);

// A text of an own list that a run would do nothing with, for a warning behind its adding: a sentence, or nothing. Of a
// folder that no run may empty the platform itself warns, through its warning sink, when it is asked here.
enum class OwnList { Folders, Files, Masks };
std::string warningOfIdleEntry(settings::Program& program, OwnList list, const std::string& text);

// A Yes/No box with No as its default. True: yes, or there is nothing to ask.
bool agrees(forms::Display& display, const std::string& question);

// All that stands between the button and the run of the windows front end: the refusal is told in a box, the questions
// are asked, warnings are warned. False: no run.
bool allowsRun(settings::Program& program);

}  // namespace tidvane::frontend
