// What the panels of the status bar mean to a person.
#pragma once

#include <string>

#include "settings/lang_text.h"

namespace tidvane::app {

// The text of a panel (from 1) as it is shown. A bare count is given the word for what it counts; everything else, and
// everything in the first panel, stands for itself.
std::string statusWords(const settings::LangTable& texts, int panel, const std::string& text);

}  // namespace tidvane::app
