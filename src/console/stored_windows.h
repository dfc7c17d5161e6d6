// Which windows keep their controls in td_config.ini, and which controls those are.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "forms/form.h"
#include "settings/program.h"

namespace tidvane::console {

std::span<const char* const> storedWindows();

// Kinds that have a stored value. List boxes can be loaded, but nobody stores them.
bool isStoredControl(const forms::Control& control);

// The value as the file holds it; line ends inside a text are written "~|~".
std::string valueOf(const forms::Control& control);

// Reads the language files. A window whose stored values cannot be assigned keeps what it got, and the others are
// captioned none the less.
void loadLanguages(settings::Program& program);

// Every stored control of every window, windows loaded where they were not, as far as their stored values let them.
void forEachStoredControl(settings::Program& program, const std::function<void(forms::Form&, forms::Control&)>& visit);

// "window.control", or the control's name alone where only one window has it; members of a control array as
// "chkWindowsTasks(0)". Case does not count. Null: `error` says what to write instead.
forms::Control* findStoredControl(settings::Program& program, std::string_view path, std::string& error);

// Gives a control a value as its user would, with all events. False: `error` is one sentence.
bool assignValue(forms::Control& control, const std::string& value, std::string& error);

}  // namespace tidvane::console
