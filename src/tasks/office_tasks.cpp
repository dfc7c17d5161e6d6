#include "tasks/office_tasks.h"

#include "registry/delete_all_keys.h"
#include "removal/modKillMethod.h"
#include "tasks/worker_protocol.h"

namespace tidvane::tasks {

namespace {

#define OFFICE "Software\\Microsoft\\Office\\"
#define O9 OFFICE "9.0\\"
#define O10 OFFICE "10.0\\"
#define O11 OFFICE "11.0\\"
#define O12 OFFICE "12.0\\"
#define FRONTPAGE "Software\\Microsoft\\FrontPage\\"
#define FP FRONTPAGE "Explorer\\FrontPage Explorer\\"
#define OPENFIND "Common\\Open Find\\"
#define RECENTDOCS "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs"

// clang-format off

// The word "Access" in four of the panel texts, the missing blank in the first row and the two blanks at the end of the
// last one are intended.
constexpr std::array kWords{
    OfficeWords{57, " Microsoft Office Access History...",     "Microsoft Office Access History ",     "Microsoft Office Access History"},
    OfficeWords{58, " Microsoft Excel Access History...",      "Microsoft Office Excel History ",      "Microsoft Office Excel History "},
    OfficeWords{59, " Microsoft PowerPoint Access History...", "Microsoft Office PowerPoint History ", "Microsoft Office PowerPoint History "},
    OfficeWords{60, " Microsoft Word Access History...",       "Microsoft Office Word History ",       "Microsoft Office Word History "},
    OfficeWords{61, " Microsoft FrontPage Access History...",  "Microsoft Office FrontPage History ",  "Microsoft Office FrontPage History  "},
};

// Keys of generation 12.0 stand under the labels of older ones, and the block 97 of every task is the list of recent
// documents of Windows: intended.
constexpr std::array kBlocks{
    OfficeBlock{57, "Microsoft Office XP Access History ", {{
        {O10 "Access"},  // all settings of the program, in the generations 9.0 to 11.0
        {O10 OPENFIND "Microsoft Access\\Settings\\File New Database\\File Name MRU"},
    }}},
    OfficeBlock{57, "Microsoft Office 2003 Access History ", {{
        {O11 "Access"},
    }}},
    OfficeBlock{57, "Microsoft Office 2003 Access Vorlagen History ", {{
        {O11 "Access\\Recent Templates"},
    }}},
    OfficeBlock{57, "Microsoft Office 2000 Access History ", {{
        {O9 "Access"},
        {O9 OPENFIND "Microsoft Access\\Settings\\Open\\File Name MRU"},
        {O9 OPENFIND "Microsoft Access\\Settings\\File New Database\\File Name MRU"},
        {O12 OPENFIND "Microsoft Office Access"},
    }}},
    OfficeBlock{57, "Microsoft Office 97 Access History ", {{
        {RECENTDOCS},
    }}},

    OfficeBlock{58, "Microsoft Office XP Excel History ", {{
        {O10 "Excel\\Recent Files"},
        {O12 "Excel", "File MRU"},
        {O12 OPENFIND "Microsoft Office Excel"},
    }}},
    OfficeBlock{58, "Microsoft Office 2003 Excel Vorlagen History ", {{
        {O11 "Excel\\Recent Templates"},
    }}},
    OfficeBlock{58, "Microsoft Office 2003 Excel History ", {{
        {O11 "Excel\\Recent Files"},
        {O11 OPENFIND "Microsoft Office Excel\\Settings\\Open\\File Name MRU"},
        {O11 OPENFIND "Microsoft Office Excel\\Settings\\Save As\\File Name MRU"},
    }}},
    OfficeBlock{58, "Microsoft Office 2000 Excel History ", {{
        {O9 OPENFIND "Microsoft Excel\\Settings\\Open\\File Name MRU"},
        {O9 OPENFIND "Microsoft Excel\\Settings\\Save As\\File Name MRU"},
        {O9 "Excel\\Recent Files"},
    }}},
    OfficeBlock{58, "Microsoft Office 97 Excel History ", {{
        {RECENTDOCS},
    }}},

    OfficeBlock{59, "Microsoft Office XP PowerPoint History ", {{
        {O10 "PowerPoint\\Recent File List"},
        {O12 "PowerPoint", "File MRU"},
        {O12 OPENFIND "Microsoft Office PowerPoint"},
    }}},
    OfficeBlock{59, "Microsoft Office 2003 PowerPoint Vorlagen History ", {{
        {O11 "PowerPoint\\Recent Templates"},
    }}},
    OfficeBlock{59, "Microsoft Office 2003 PowerPoint History ", {{
        {O11 "PowerPoint\\Recent File List"},
    }}},
    OfficeBlock{59, "Microsoft Office 2000 PowerPoint History ", {{
        {O9 "PowerPoint\\Recent File List"},
        {O9 OPENFIND "Microsoft PowerPoint\\Settings\\Open\\File Name MRU"},
        {O9 OPENFIND "Microsoft PowerPoint\\Settings\\Save As\\File Name MRU"},
    }}},
    OfficeBlock{59, "Microsoft Office 97 PowerPoint History ", {{
        {RECENTDOCS},
    }}},

    OfficeBlock{60, "Microsoft Office XP Word History ", {{
        {O10 "Word\\Data"},  // customised settings too, in the generations 9.0 to 11.0
        {O11 OPENFIND "Microsoft Office Word"},
        {O12 "Word", "File MRU"},
        {O12 OPENFIND "Microsoft Office Word"},
    }}},
    OfficeBlock{60, "Microsoft Office 2003 Word Vorlagen History ", {{
        {O11 "Word\\Recent Templates"},
    }}},
    OfficeBlock{60, "Microsoft Office 2003 Word History ", {{
        {O11 "Word\\Data"},
        {O11 OPENFIND "Microsoft Office Word\\Settings\\Insert Picture\\File Name MRU"},
        {O11 OPENFIND "Microsoft Office Word\\Settings\\Open\\File Name MRU"},
        {O11 OPENFIND "Microsoft Office Word\\Settings\\Save As\\File Name MRU"},
    }}},
    OfficeBlock{60, "Microsoft Office 2000 Word History ", {{
        {O9 OPENFIND "Microsoft Word\\Settings\\Open\\File Name MRU"},
        {O9 OPENFIND "Microsoft Word\\Settings\\Save As\\File Name MRU"},
        {O9 "Word\\Data"},
    }}},
    OfficeBlock{60, "Microsoft Office 97 Word History ", {{
        {RECENTDOCS},
    }}},

    OfficeBlock{61, "Microsoft Office XP Word History ", {{  // the label of Word: intended
        {FP "Recent File List"},
        {FP "Recent Page List"},
        {FP "Recent Web List"},
    }}},
    OfficeBlock{61, "Microsoft Office 2003 Front Page Vorlagen History ", {{
        {O11 "FrontPage\\Recent Templates"},
    }}},
    OfficeBlock{61, "Microsoft Office 2003 Front Page History ", {{
        {FP "Recent File List"},
        {FP "Recent Page List"},
        {FP "Recent Web List"},
        {O11 "Visio\\Application\\LastFile"},
        {O12 OPENFIND "Microsoft Office FrontPage"},
    }}},
    OfficeBlock{61, "Microsoft Office 2000 Front Page History ", {{
        {O9 OPENFIND "Microsoft FrontPage\\Settings\\Open File\\File Name MRU"},
        {O9 OPENFIND "Microsoft FrontPage\\Settings\\Save As\\File Name MRU"},
        {FP "Recent File List"},
        {FP "Recent Page List"},
        {FP "Recent Web List"},
        {FP "Recently Created Servers"},
        {FRONTPAGE "Editor\\Recently Used URLs"},
    }}},
    OfficeBlock{61, "Microsoft Office 97 Front Page History ", {{
        {RECENTDOCS},
    }}},
};
// clang-format on

#undef OFFICE
#undef O9
#undef O10
#undef O11
#undef O12
#undef FRONTPAGE
#undef FP
#undef OPENFIND
#undef RECENTDOCS

const OfficeWords* wordsOf(int step) {
    for (const OfficeWords& words : kWords) {
        if (words.step == step) return &words;
    }
    return nullptr;
}

// The index of the list of recent files, whatever application the task is for: no test, no line.
void removeRecentIndex(settings::Program& program) {
    const int method = program.selectedKillMethod();
    if (method < 0) return;
    const std::string folder = program.platform.shell.SpecialFolder(platform::csidl::AppData);
    (void)removal::KillFile(program.platform, folder + "\\Microsoft\\Office\\Recent\\index.dat", method, false);
}

void cleanBlock(settings::Program& program, const CleaningTask& task, const OfficeBlock& block) {
    long result = -1;
    for (const OfficeKey& each : block.keys) {
        if (each.key == nullptr) break;
        registry::DeleteAllKeys(program.platform.registry, platform::HKEY_CURRENT_USER_, each.key, each.subKey, result);
    }
    const bool cleaned = result == 0;
    program.report().AddLogLine(block.label + program.LangText(cleaned ? 504 : 499) + (cleaned ? " <OK>" : ""));
    endRow(program, task, cleaned ? 507 : 508, cleaned ? kIconDone : kIconNotFound);
}

}  // namespace

std::span<const OfficeWords> officeWords() {
    return kWords;
}

std::span<const OfficeBlock> officeBlocks() {
    return kBlocks;
}

void cleanOffice(settings::Program& program, const CleaningTask& task) {
    const OfficeWords* words = wordsOf(task.step);
    if (words == nullptr) return;
    if (gateValue(program, task.gate) != 1) {
        program.report().AddLogLine(words->untickedLog + program.LangText(509));
        program.report().setPanel(1, words->untickedPanel + program.LangText(509));
        program.report().setPanel(1, program.LangText(507));
        return;
    }
    if (beginRow(program, task, program.LangText(503) + words->panel) != Begin::Go) return;
    removeRecentIndex(program);
    // Each block writes over the row, so it ends with the last one's result: intended.
    for (const OfficeBlock& block : kBlocks) {
        if (block.step == task.step) cleanBlock(program, task, block);
    }
}

}  // namespace tidvane::tasks
