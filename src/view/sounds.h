// Sounds: the short ones of the task pane, which the program carries inside itself, and files.
#pragma once

#include <string>

namespace tidvane::view {

// Returns at once; silent where the machine has no sound or the name is unknown. Names: "group", "item".
void playEmbeddedSound(const std::string& name);
// The same with a file of the host, a WAVE sound; silent for whatever else it is, and where there is none.
void playSoundFile(const std::string& path);

}  // namespace tidvane::view
