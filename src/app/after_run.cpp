#include "app/after_run.h"

#include "app/decorations.h"
#include "app/frmMain.h"
#include "base/text.h"
#include "settings/frmOptions.h"
#include "settings/shell_wait.h"

namespace tidvane::app {

void RunMemoryTrim(frmMain& main) {
    settings::Program& program = main.program();
    if (!program.get<settings::frmOptions>().chkCleanRAM.ticked() || main.StopRequested()) return;
    const settings::LangTable& text = program.LangText;
    main.AddLogHeading(kThinRule);
    const std::string begin = text(535) + ": " + text(552) + "... " + text(626);
    main.AddLogHeading(begin);
    main.setPanel(1, begin);
    settings::ShellWait(program, base::withoutBackslash(program.programFolder()) + "\\memtrim.exe");
    main.AddLogHeading(text(552) + " <OK>");
    main.setPanel(1, text(552) + " <OK>");
}

void RunRegistryAddIn(frmMain& main) {
    settings::Program& program = main.program();
    auto& options = program.get<settings::frmOptions>();
    if (!options.chkAddInRegClean.ticked() || main.StopRequested()) return;
    const settings::LangTable& text = program.LangText;
    main.AddLogHeading(kThinRule);
    main.AddLogHeading(text(535) + ": " + text(542) + "...");
    main.AddLogLine(text(543) + " " + text(510));
    const std::string path = options.txtAddInRegCleanPath.Text();
    if (!program.platform.files.FileExists(path)) {
        main.AddLogLine(path + " " + text(543) + " " + text(550));
        if (options.chkHideAlertMessage.ticked()) return;
        program.MsgBox(text(551) + "\r\n" + text(550) + " " + text(543), forms::msgbox::Exclamation,
                       "regsweep.exe " + text(550));
        return;
    }
    main.AddLogLine(path + " " + text(543));
    main.AddLogLine(text(544));
    main.setPanel(1, text(544));
    main.AddLogLine(text(545));
    settings::ShellWait(program, path);
    for (const int line : {546, 547, 548}) main.AddLogLine(text(line));
    main.setPanel(1, text(549));
}

}  // namespace tidvane::app
