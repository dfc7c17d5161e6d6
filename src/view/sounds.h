// The short sounds of the task pane, which the program carries inside itself.
#pragma once

#include <string>

namespace tidvane::view {

// Returns at once; silent where the machine has no sound or the name is unknown. Names: "group", "item".
void playEmbeddedSound(const std::string& name);

}  // namespace tidvane::view
