// The Office tasks: five of them, five blocks of keys each.
#include "tasks/office_tasks.h"

#include <map>
#include <utility>

#include "tasks/task_fixture.h"

namespace tidvane::tests {

namespace {
constexpr int kAccess = 57;
constexpr int kExcel = 58;
constexpr int kPowerPoint = 59;
constexpr int kWord = 60;
constexpr int kFrontPage = 61;

// Written out in full: the table of the tasks joins its keys from parts.
using Keys = std::vector<std::string>;
using Block = std::pair<std::string, Keys>;
const std::string kRecentDocs = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RecentDocs";
const std::string k9 = "Software\\Microsoft\\Office\\9.0\\";
const std::string k10 = "Software\\Microsoft\\Office\\10.0\\";
const std::string k11 = "Software\\Microsoft\\Office\\11.0\\";
const std::string k12 = "Software\\Microsoft\\Office\\12.0\\";
const std::string kFp = "Software\\Microsoft\\FrontPage\\Explorer\\FrontPage Explorer\\";

const std::map<int, std::vector<Block>> kBlocks{
    {kAccess,
     {
         {"Microsoft Office XP Access History ",
          {k10 + "Access", k10 + "Common\\Open Find\\Microsoft Access\\Settings\\File New Database\\File Name MRU"}},
         {"Microsoft Office 2003 Access History ", {k11 + "Access"}},
         {"Microsoft Office 2003 Access Vorlagen History ", {k11 + "Access\\Recent Templates"}},
         {"Microsoft Office 2000 Access History ",
          {k9 + "Access", k9 + "Common\\Open Find\\Microsoft Access\\Settings\\Open\\File Name MRU",
           k9 + "Common\\Open Find\\Microsoft Access\\Settings\\File New Database\\File Name MRU",
           k12 + "Common\\Open Find\\Microsoft Office Access"}},
         {"Microsoft Office 97 Access History ", {kRecentDocs}},
     }},
    {kExcel,
     {
         {"Microsoft Office XP Excel History ",
          {k10 + "Excel\\Recent Files", k12 + "Excel\\File MRU", k12 + "Common\\Open Find\\Microsoft Office Excel"}},
         {"Microsoft Office 2003 Excel Vorlagen History ", {k11 + "Excel\\Recent Templates"}},
         {"Microsoft Office 2003 Excel History ",
          {k11 + "Excel\\Recent Files",
           k11 + "Common\\Open Find\\Microsoft Office Excel\\Settings\\Open\\File Name MRU",
           k11 + "Common\\Open Find\\Microsoft Office Excel\\Settings\\Save As\\File Name MRU"}},
         {"Microsoft Office 2000 Excel History ",
          {k9 + "Common\\Open Find\\Microsoft Excel\\Settings\\Open\\File Name MRU",
           k9 + "Common\\Open Find\\Microsoft Excel\\Settings\\Save As\\File Name MRU", k9 + "Excel\\Recent Files"}},
         {"Microsoft Office 97 Excel History ", {kRecentDocs}},
     }},
    {kPowerPoint,
     {
         {"Microsoft Office XP PowerPoint History ",
          {k10 + "PowerPoint\\Recent File List", k12 + "PowerPoint\\File MRU",
           k12 + "Common\\Open Find\\Microsoft Office PowerPoint"}},
         {"Microsoft Office 2003 PowerPoint Vorlagen History ", {k11 + "PowerPoint\\Recent Templates"}},
         {"Microsoft Office 2003 PowerPoint History ", {k11 + "PowerPoint\\Recent File List"}},
         {"Microsoft Office 2000 PowerPoint History ",
          {k9 + "PowerPoint\\Recent File List",
           k9 + "Common\\Open Find\\Microsoft PowerPoint\\Settings\\Open\\File Name MRU",
           k9 + "Common\\Open Find\\Microsoft PowerPoint\\Settings\\Save As\\File Name MRU"}},
         {"Microsoft Office 97 PowerPoint History ", {kRecentDocs}},
     }},
    {kWord,
     {
         {"Microsoft Office XP Word History ",
          {k10 + "Word\\Data", k11 + "Common\\Open Find\\Microsoft Office Word", k12 + "Word\\File MRU",
           k12 + "Common\\Open Find\\Microsoft Office Word"}},
         {"Microsoft Office 2003 Word Vorlagen History ", {k11 + "Word\\Recent Templates"}},
         {"Microsoft Office 2003 Word History ",
          {k11 + "Word\\Data",
           k11 + "Common\\Open Find\\Microsoft Office Word\\Settings\\Insert Picture\\File Name MRU",
           k11 + "Common\\Open Find\\Microsoft Office Word\\Settings\\Open\\File Name MRU",
           k11 + "Common\\Open Find\\Microsoft Office Word\\Settings\\Save As\\File Name MRU"}},
         {"Microsoft Office 2000 Word History ",
          {k9 + "Common\\Open Find\\Microsoft Word\\Settings\\Open\\File Name MRU",
           k9 + "Common\\Open Find\\Microsoft Word\\Settings\\Save As\\File Name MRU", k9 + "Word\\Data"}},
         {"Microsoft Office 97 Word History ", {kRecentDocs}},
     }},
    {kFrontPage,
     {
         {"Microsoft Office XP Word History ",
          {kFp + "Recent File List", kFp + "Recent Page List", kFp + "Recent Web List"}},
         {"Microsoft Office 2003 Front Page Vorlagen History ", {k11 + "FrontPage\\Recent Templates"}},
         {"Microsoft Office 2003 Front Page History ",
          {kFp + "Recent File List", kFp + "Recent Page List", kFp + "Recent Web List",
           k11 + "Visio\\Application\\LastFile", k12 + "Common\\Open Find\\Microsoft Office FrontPage"}},
         {"Microsoft Office 2000 Front Page History ",
          {k9 + "Common\\Open Find\\Microsoft FrontPage\\Settings\\Open File\\File Name MRU",
           k9 + "Common\\Open Find\\Microsoft FrontPage\\Settings\\Save As\\File Name MRU", kFp + "Recent File List",
           kFp + "Recent Page List", kFp + "Recent Web List", kFp + "Recently Created Servers",
           "Software\\Microsoft\\FrontPage\\Editor\\Recently Used URLs"}},
         {"Microsoft Office 97 Front Page History ", {kRecentDocs}},
     }},
};

const std::string kRecent = "C:\\Users\\Anna\\AppData\\Roaming\\Microsoft\\Office\\Recent\\";
}  // namespace

struct OfficeTasks : TaskFixture {
    std::string found(const std::string& label) { return label + text(504) + " <OK>"; }
    std::string missing(const std::string& label) { return label + text(499); }
    // What a task logs when just the blocks of these numbers find their last key.
    std::vector<std::string> lines(int step, const std::vector<std::size_t>& there) {
        std::vector<std::string> expected;
        const std::vector<Block>& blocks = kBlocks.at(step);
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            const bool isThere = std::find(there.begin(), there.end(), i) != there.end();
            expected.push_back(isThere ? found(blocks[i].first) : missing(blocks[i].first));
        }
        return expected;
    }
    static bool liesBelowAnother(int step, const std::string& key) {
        for (const Block& block : kBlocks.at(step)) {
            for (const std::string& other : block.second) {
                if (key.starts_with(other + "\\")) return true;
            }
        }
        return false;
    }
};

TEST_F(OfficeTasks, HaveTheirBlocksInOrder) {
    std::map<int, std::vector<Block>> actual;
    for (const tasks::OfficeBlock& block : tasks::officeBlocks()) {
        Block& added = actual[block.step].emplace_back(block.label, Keys{});
        for (const tasks::OfficeKey& key : block.keys) {
            if (key.key == nullptr) break;
            const std::string subKey = key.subKey;
            added.second.push_back(key.key + (subKey.empty() ? "" : "\\" + subKey));
        }
    }
    EXPECT_EQ(actual, kBlocks);
}

TEST_F(OfficeTasks, OpenTheParentOfOnlyTheThreeFileListsOf2007) {
    std::vector<std::string> subKeys;
    for (const tasks::OfficeBlock& block : tasks::officeBlocks()) {
        for (const tasks::OfficeKey& key : block.keys) {
            if (key.key == nullptr) break;
            const std::string subKey = key.subKey;
            if (!subKey.empty()) subKeys.push_back(std::string(key.key) + " > " + subKey);
        }
    }
    EXPECT_EQ(subKeys, (std::vector<std::string>{k12 + "Excel > File MRU", k12 + "PowerPoint > File MRU",
                                                 k12 + "Word > File MRU"}));
}

TEST_F(OfficeTasks, UntickedOnesHaveWordsOfTheirOwn) {
    struct Row {
        int step;
        const char* log;
        const char* panel;
    };
    for (const Row& row : {
             Row{kAccess, "Microsoft Office Access History ", "Microsoft Office Access History"},
             Row{kExcel, "Microsoft Office Excel History ", "Microsoft Office Excel History "},
             Row{kPowerPoint, "Microsoft Office PowerPoint History ", "Microsoft Office PowerPoint History "},
             Row{kWord, "Microsoft Office Word History ", "Microsoft Office Word History "},
             Row{kFrontPage, "Microsoft Office FrontPage History ", "Microsoft Office FrontPage History  "},
         }) {
        for (const int value : {0, 2}) {
            EXPECT_EQ(run(row.step, value), std::vector<std::string>{row.log + text(509)});
            EXPECT_EQ(panels, (std::vector<std::string>{row.panel + text(509), text(507)}));
        }
    }
}

TEST_F(OfficeTasks, TickedOnesShowAPanelTextOfTheirOwnAndTheirRowRuns) {
    const std::map<int, std::string> texts{{kAccess, " Microsoft Office Access History..."},
                                           {kExcel, " Microsoft Excel Access History..."},
                                           {kPowerPoint, " Microsoft PowerPoint Access History..."},
                                           {kWord, " Microsoft Word Access History..."},
                                           {kFrontPage, " Microsoft FrontPage Access History..."}};
    const std::map<int, std::string> rows{{kAccess, "Microsoft Office Access"},
                                          {kExcel, "Microsoft Office Excel"},
                                          {kPowerPoint, "Microsoft Office PowerPoint"},
                                          {kWord, "Microsoft Office Word"},
                                          {kFrontPage, "Microsoft Office Front Page"}};
    options().txtPurgeSpeed.setText("30");
    std::string row;
    std::vector<std::string> statuses;
    std::int64_t slept = 0;
    bool watchingRows = false;
    main().lstTasks.viewChanged.connect([&] {
        if (!watchingRows) return;
        const forms::ListItem* item = main().lstTasks.item(row);
        statuses.push_back(item->subItem("Status") + (item->selected ? " selected" : "") + " after " +
                           std::to_string(machine.clock.sleptMilliseconds - slept));
    });
    for (const auto& [step, panelText] : texts) {
        tick(gate(step));
        row = rows.at(step);
        statuses.clear();
        slept = machine.clock.sleptMilliseconds;
        panels.clear();
        watch();
        watchingRows = true;
        task(step).worker(program, task(step));
        watchingRows = false;
        EXPECT_EQ(panels, std::vector<std::string>{text(503) + panelText});
        ASSERT_GE(statuses.size(), 2u);
        EXPECT_EQ(statuses[0], text(505) + " after 0");
        EXPECT_EQ(statuses[1], text(505) + " selected after 30");
        tick(gate(step), 0);
    }
}

TEST_F(OfficeTasks, RemoveEveryKeyOfEveryBlockAndNoNeighbour) {
    for (const auto& [step, blocks] : kBlocks) {
        for (const Block& block : blocks) {
            for (const std::string& key : block.second) {
                putKey(key + "\\below");
                putKey(key + " beside");
            }
        }
        run(step);
        for (const Block& block : blocks) {
            for (const std::string& key : block.second) {
                EXPECT_FALSE(hasKey(key)) << step << " " << key;
                // Below a key that goes whole a neighbour goes too.
                EXPECT_NE(hasKey(key + " beside"), liesBelowAnother(step, key)) << step << " " << key;
            }
        }
    }
}

TEST_F(OfficeTasks, ReportEachBlockByItsLastKeyAlone) {
    int blocksReported = 0;
    for (const auto& [step, blocks] : kBlocks) {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            const Keys& keys = blocks[i].second;
            for (const std::string& key : keys) {
                if (key != keys.back()) putKey(key);
            }
            EXPECT_EQ(run(step)[i], missing(blocks[i].first)) << step;
            for (const std::string& key : keys) EXPECT_FALSE(hasKey(key)) << key;
            // The last key of two blocks lies below a key that a block in front of them takes.
            if (liesBelowAnother(step, keys.back())) continue;
            putKey(keys.back());
            EXPECT_EQ(run(step), lines(step, {i})) << step;
            ++blocksReported;
        }
    }
    EXPECT_EQ(blocksReported, 23);
}

TEST_F(OfficeTasks, FindNothingInABlockWhoseLastKeyWentWithOneInFront) {
    putKey(k11 + "Access\\Recent Templates");
    EXPECT_EQ(run(kAccess), lines(kAccess, {1}));
    putKey(k11 + "Word\\Data");
    putKey(k11 + "Common\\Open Find\\Microsoft Office Word\\Settings\\Save As\\File Name MRU");
    EXPECT_EQ(run(kWord), lines(kWord, {}));
    EXPECT_FALSE(hasKey(k11 + "Word\\Data"));
    EXPECT_FALSE(hasKey(k11 + "Common\\Open Find\\Microsoft Office Word"));
}

TEST_F(OfficeTasks, LogFiveLinesWithNothingThereAndEndNotFound) {
    for (const auto& [step, blocks] : kBlocks) {
        EXPECT_EQ(run(step), lines(step, {})) << step;
        EXPECT_EQ(statusOf(step), text(508)) << step;
        EXPECT_EQ(iconOf(step), 10) << step;
    }
}

TEST_F(OfficeTasks, TellTheGenerationThatIsThere) {
    putKey(k11 + "Access\\Settings");
    EXPECT_EQ(run(kAccess), lines(kAccess, {1}));  // the templates went with the whole key in front
    EXPECT_FALSE(hasKey(k11 + "Access"));
    putKey(k11 + "Excel\\Recent Templates");
    putKey(k11 + "Excel\\Recent Files");
    putKey(k11 + "Common\\Open Find\\Microsoft Office Excel\\Settings\\Save As\\File Name MRU");
    EXPECT_EQ(run(kExcel), lines(kExcel, {1, 2}));
    putKey(k11 + "PowerPoint\\Recent File List");
    EXPECT_EQ(run(kPowerPoint), lines(kPowerPoint, {2}));
    EXPECT_EQ(statusOf(kPowerPoint), text(508));
    EXPECT_EQ(iconOf(kPowerPoint), 10);
}

TEST_F(OfficeTasks, ReportAccess2000ByItsKeyOf2007) {
    putKey(k9 + "Access");
    EXPECT_EQ(run(kAccess), lines(kAccess, {}));
    EXPECT_FALSE(hasKey(k9 + "Access"));
    putKey(k12 + "Common\\Open Find\\Microsoft Office Access");
    EXPECT_EQ(run(kAccess), lines(kAccess, {3}));
}

TEST_F(OfficeTasks, ClearTheListsOfFrontPageUnderTheLabelOfWord) {
    for (const char* list : {"Recent File List", "Recent Page List", "Recent Web List"}) putKey(kFp + list);
    const std::vector<std::string> logged = run(kFrontPage);
    EXPECT_EQ(logged, lines(kFrontPage, {0}));
    EXPECT_EQ(logged[0], "Microsoft Office XP Word History " + text(504) + " <OK>");
}

TEST_F(OfficeTasks, EndTheirRowsByTheRecentDocumentsAlone) {
    for (const auto& [step, blocks] : kBlocks) {
        putKey(kRecentDocs);
        EXPECT_EQ(run(step), lines(step, {4})) << step;
        EXPECT_EQ(statusOf(step), text(507)) << step;
        EXPECT_EQ(iconOf(step), 9) << step;
        // Everything but that list is there.
        for (std::size_t i = 0; i < 4; ++i) putKey(blocks[i].second.back());
        run(step);
        EXPECT_EQ(statusOf(step), text(508)) << step;
        EXPECT_EQ(iconOf(step), 10) << step;
    }
}

TEST_F(OfficeTasks, WriteTheRowAtEveryBlock) {
    putKey(k10 + "PowerPoint\\Recent File List");
    putKey(k12 + "Common\\Open Find\\Microsoft Office PowerPoint");
    tick(gate(kPowerPoint));
    std::vector<std::string> seen;
    main().txtLog.Change.connect(
        [&] { seen.push_back(statusOf(kPowerPoint) + " " + std::to_string(iconOf(kPowerPoint))); });
    main().log().empty();
    seen.clear();
    task(kPowerPoint).worker(program, task(kPowerPoint));
    // Looked at when a line comes: what the block before has left.
    ASSERT_EQ(seen.size(), 5u);
    EXPECT_EQ(seen[0], text(505) + " 8");
    EXPECT_EQ(seen[1], text(507) + " 9");
    for (std::size_t i = 2; i < 5; ++i) EXPECT_EQ(seen[i], text(508) + " 10") << i;
}

TEST_F(OfficeTasks, TheFirstOneTakesTheRecentDocumentsAndTheLaterOnesFindNone) {
    putKey(kRecentDocs);
    putKey(k11 + "PowerPoint\\Recent File List");
    for (const int step : {kAccess, kPowerPoint}) tick(gate(step));
    clean();
    EXPECT_EQ(statusOf(kAccess), text(507));
    EXPECT_EQ(statusOf(kPowerPoint), text(508));
    EXPECT_TRUE(logHas(found("Microsoft Office 2003 PowerPoint History ")));
    EXPECT_FALSE(hasKey(kRecentDocs));
}

TEST_F(OfficeTasks, RemoveTheIndexOfTheRecentFilesWithoutALine) {
    for (const auto& [step, blocks] : kBlocks) {
        machine.files.putFile(kRecent + "index.dat", "12345");
        machine.files.putFile(kRecent + "a.lnk", "1");
        EXPECT_EQ(run(step), lines(step, {})) << step;
        EXPECT_FALSE(machine.files.has(kRecent + "index.dat")) << step;
        EXPECT_TRUE(machine.files.has(kRecent + "a.lnk")) << step;
    }
}

TEST_F(OfficeTasks, RemoveTheIndexByTheChosenMethod) {
    start();
    machine.files.putFile(kRecent + "index.dat", "12345");
    options().cboKillMethod.setListIndex(1);
    run(kWord);
    ASSERT_EQ(machine.shell.recycled.size(), 1u);
    EXPECT_EQ(machine.shell.recycled[0].originalPath, kRecent + "index.dat");
    machine.files.putFile(kRecent + "index.dat", "12345");
    options().cboKillMethod.setListIndex(2);
    run(kWord);
    ASSERT_EQ(machine.files.overwritten.size(), 1u);
    machine.files.putFile(kRecent + "index.dat", "12345");
    options().cboKillMethod.setListIndex(0);
    program.LangText.set(732, "a word of another language");
    EXPECT_EQ(run(kWord), lines(kWord, {}));
    EXPECT_TRUE(machine.files.has(kRecent + "index.dat"));
}

TEST_F(OfficeTasks, LeaveTheIndexOfAnUnknownFolder) {
    start();
    machine.shell.specialFolders.erase(26);
    machine.files.putFile("C:\\Microsoft\\Office\\Recent\\index.dat", "1");
    for (const int method : {0, 1, 2}) {
        options().cboKillMethod.setListIndex(method);
        EXPECT_EQ(run(kWord), lines(kWord, {}));
        EXPECT_TRUE(machine.files.has("C:\\Microsoft\\Office\\Recent\\index.dat")) << method;
    }
}

TEST_F(OfficeTasks, AStopEndsThemBeforeTheIndexAndTheKeys) {
    putKey(kRecentDocs);
    machine.files.putFile(kRecent + "index.dat", "1");
    start();
    main().cmdStop_Click();
    for (const auto& [step, blocks] : kBlocks) {
        EXPECT_TRUE(run(step).empty()) << step;
        EXPECT_EQ(statusOf(step), text(506)) << step;
        EXPECT_EQ(iconOf(step), 8) << step;
    }
    EXPECT_TRUE(hasKey(kRecentDocs));
    EXPECT_TRUE(machine.files.has(kRecent + "index.dat"));
}

TEST_F(OfficeTasks, AStopBehindTheTestComesTooLate) {
    start();
    tick(gate(kWord));
    main().log().empty();
    bool stopped = false;
    // The first line of the log: the task is past its test.
    main().txtLog.Change.connect([&] {
        if (std::exchange(stopped, true)) return;
        main().cmdStop_Click();
    });
    stopped = false;
    task(kWord).worker(program, task(kWord));
    EXPECT_TRUE(main().StopRequested());
    std::vector<std::string> logged = logLines();
    std::erase(logged, "***** " + text(554) + " *****");
    EXPECT_EQ(logged, lines(kWord, {}));
    EXPECT_EQ(statusOf(kWord), text(508));
}

}  // namespace tidvane::tests
