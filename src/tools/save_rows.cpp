#include "tools/save_rows.h"

namespace tidvane::tools {

void saveRows(settings::Program& program, const std::vector<std::string>& rows) {
    forms::FileQuestion question;
    question.filter = "*.txt|*.txt";
    question.save = true;
    const std::string file = program.display.askFile(question);
    if (file.empty()) return;
    std::string lines;
    for (const std::string& row : rows) lines += row + "\r\n";
    (void)program.platform.files.WriteFileBytes(file, program.codePage().fromUtf8(lines));
}

}  // namespace tidvane::tools
