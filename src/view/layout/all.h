// One layout for each window: makes its widgets and puts them in their places.
#pragma once

namespace tidvane::view {

class FormWindow;

void layoutBrowserDirs(FormWindow& window);
void layoutFrmDiskSizeStats(FormWindow& window);
void layoutFrmIECache(FormWindow& window);
void layoutFrmIECookies(FormWindow& window);
void layoutFrmIEInDepthClean(FormWindow& window);
void layoutFrmMain(FormWindow& window);
void layoutFrmManualSearch(FormWindow& window);
void layoutFrmMoreToConfigure(FormWindow& window);
void layoutFrmOptions(FormWindow& window);
void layoutFrmPlugsInfo(FormWindow& window);
void layoutFrmResources(FormWindow& window);
void layoutFrmSearchMasks(FormWindow& window);
void layoutFrmStarter(FormWindow& window);
void layoutFrmTempAge(FormWindow& window);
void layoutFrmWidget(FormWindow& window);

}  // namespace tidvane::view
