// The load of the main window: one long sequence that nothing can abort but a second instance.
#pragma once

#include <string>

namespace tidvane::app {

class frmMain;

class StartSequence {
public:
    explicit StartSequence(frmMain& main) : main_(main) {}
    void run();

private:
    void loadLanguage();
    void buildTaskPane();
    void buildTaskList();
    void writeStartLines();
    void warnOfAddIns();
    void loadPlugIns();
    void showNews();
    void noteProtection();
    void showLastRun();
    bool anotherInstanceRuns();
    void showWidget();
    void applyLogOptions();
    void startMinimized();
    void fillAboutPage();
    void readCommandLine();
    void captionMenus();
    void cleanAtStart();

    frmMain& main_;
};

}  // namespace tidvane::app
