// One layout for each window: makes its widgets and puts them in their places.
#pragma once

namespace tidvane::view {

class FormWindow;

void layoutFrmMain(FormWindow& window);
void layoutFrmTempAge(FormWindow& window);

}  // namespace tidvane::view
