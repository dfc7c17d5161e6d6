#include "app/log_file.h"

#include <string>

#include "app/decorations.h"
#include "app/frmMain.h"
#include "base/date_time.h"
#include "settings/frmOptions.h"

namespace tidvane::app {

namespace {

constexpr int kRuleOfButton = 18;
constexpr int kRuleOfRun = 29;

// The two forms of the file differ in the rule's length and in what stands before the date: intended.
std::string layout(settings::Program& program, const std::string& log, int rule, const std::string& beforeDate) {
    const std::string line(static_cast<std::size_t>(rule), '=');
    const std::string end = "\r\n";
    return line + end + "::: Tidvane :::" + end + line + end + end + log + end + program.LangText(536) + beforeDate +
           base::dateTimeText(program.platform.clock.now(), program.locale()) + end;
}

void write(settings::Program& program, const std::string& file, const std::string& text) {
    // Ignored on purpose: a log that cannot be written is not reported.
    (void)program.platform.files.WriteFileBytes(file, program.codePage().fromUtf8(text));
}

void reportMissingFolder(settings::Program& program, const std::string& folder) {
    const std::string first = program.LangText(532) + " ";
    const std::string rest = program.LangText(533) + " " + program.LangText(531);
    program.report().AddLogLine(first + folder + " " + rest);
    program.report().setPanel(1, first + rest);
}

}  // namespace

void saveLogByButton(frmMain& main) {
    settings::Program& program = main.program();
    auto& options = program.get<settings::frmOptions>();
    if (options.chkAskLogLocation.ticked()) {
        forms::FileQuestion question;
        question.save = true;
        const std::string file = program.display.askFile(question);
        if (file.empty()) return;
        return write(program, file, layout(program, main.txtLog.Text(), kRuleOfButton, " "));
    }
    const std::string folder = options.txtTidvaneLog.Text();
    if (!program.platform.files.FolderExists(folder)) return reportMissingFolder(program, folder);
    // No test for a backslash at the folder's end: intended.
    const std::string file = folder + "\\td_log.txt";
    const std::string line = program.LangText(580) + " " + file + " <OK>";
    program.report().AddLogLine(line);
    program.report().setPanel(1, line);
    write(program, file, layout(program, main.txtLog.Text(), kRuleOfButton, " "));
}

void SaveAutoLog(frmMain& main) {
    settings::Program& program = main.program();
    auto& options = program.get<settings::frmOptions>();
    if (!options.chkAutoLog.ticked() || main.StopRequested()) return;
    const std::string log = main.txtLog.Text();
    const std::string folder = options.txtTidvaneLog.Text();
    if (!program.platform.files.FolderExists(folder)) return reportMissingFolder(program, folder);
    const std::string file = folder + "\\td_log.txt";
    program.report().AddLogHeading(kThinRule);
    program.report().AddLogHeading(program.LangText(535) + ": " + program.LangText(534) + " " + file + " <OK>");
    program.report().setPanel(1, program.LangText(534) + " " + file);
    write(program, file, layout(program, log, kRuleOfRun, ": "));
}

}  // namespace tidvane::app
