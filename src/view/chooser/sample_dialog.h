// Asks for the folder of a sample machine and has it made.
#pragma once

#include <functional>
#include <string>

#include "view/chooser/words.h"

class wxWindow;

namespace tidvane::view {

// Makes a sample machine in a folder; answers with why it could not, or with nothing.
using CreateSample = std::function<std::string(const std::string& directory)>;

// The folder of the machine that was made; empty: none was. What stands against a folder is told, and another one may
// be named.
std::string createSampleByDialog(wxWindow* owner, Tongue tongue, const std::string& proposed,
                                 const CreateSample& create);

}  // namespace tidvane::view
