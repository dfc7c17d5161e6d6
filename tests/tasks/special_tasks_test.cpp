// The recycle bin and the clipboard.
#include "tasks/task_fixture.h"
#include "tasks/windows_tasks.h"

namespace tidvane::tests {

namespace {
constexpr int kTrash = 14;
constexpr int kClipboard = 15;
constexpr std::uint64_t kGB = 1024ULL * 1024 * 1024;
}  // namespace

struct RecycleBin : TaskFixture {
    void recycle(const std::string& path) {
        platform::ShFileOp operation;
        operation.wFunc = platform::kFoDelete;
        operation.pFrom = path + std::string(2, '\0');
        operation.fFlags = platform::kFofAllowUndo | platform::kFofNoConfirmation;
        machine.shell.SHFileOperationA(operation);
    }
    std::vector<std::string> lines(const std::string& items, const std::string& size) {
        return {name(kTrash) + " " + items + " " + text(500) + " (" + size + ")",
                name(kTrash) + " " + text(504) + " <OK>"};
    }
};

TEST_F(RecycleBin, IsCountedAndEmptied) {
    machine.shell.putRecycled("C:\\a.txt", std::string(1536 * 1024, 'x'));
    machine.shell.putRecycled("C:\\b.txt", "x");
    EXPECT_EQ(run(kTrash), lines("2", "1.50 MB"));
    EXPECT_EQ(options().lblRecyclerFiles.Caption, "2");
    EXPECT_EQ(options().lblRecylcerSize.Caption, "1.50 MB");
    EXPECT_TRUE(machine.shell.recycled.empty());
    EXPECT_EQ(machine.shell.emptiedRoots, std::vector<std::string>{""});
    EXPECT_EQ(statusOf(kTrash), text(507));
    EXPECT_EQ(iconOf(kTrash), 9);
}

TEST_F(RecycleBin, ThatIsEmptyIsToldAsCleaned) {
    EXPECT_EQ(run(kTrash), lines("0", "0.00 MB"));
    EXPECT_EQ(iconOf(kTrash), 9);
}

TEST_F(RecycleBin, IsToldInTheFormOfTheLocale) {
    machine.system.systemLocale = base::germanLocale();
    machine.files.putFileOfLength("C:\\big", 1500 * (kGB / 1024));
    recycle("C:\\big");
    EXPECT_EQ(run(kTrash), lines("1", "1.500,00 MB"));
}

TEST_F(RecycleBin, ShowsAWrongSizeFromTwoGigabytesOn) {
    main();
    machine.files.addDrive('C', platform::DriveType::Fixed, 40 * kGB, 100 * kGB);
    machine.files.putFileOfLength("C:\\big", 2 * kGB);
    recycle("C:\\big");
    EXPECT_EQ(run(kTrash), lines("1", "-2,048.00 MB"));
    machine.files.putFileOfLength("C:\\bigger", 4 * kGB + 1024 * 1024);
    recycle("C:\\bigger");
    EXPECT_EQ(run(kTrash), lines("1", "1.00 MB"));
}

TEST_F(RecycleBin, IsNotTouchedAfterAStop) {
    machine.shell.putRecycled("C:\\a.txt", "x");
    main().cmdStop_Click();
    EXPECT_TRUE(run(kTrash).empty());
    EXPECT_EQ(machine.shell.recycled.size(), 1u);
}

struct Clipboard : TaskFixture {};

TEST_F(Clipboard, IsEmptied) {
    display.clipboard = "secret";
    EXPECT_EQ(run(kClipboard), cleaned(kClipboard));
    EXPECT_EQ(display.clipboard, "");
    EXPECT_EQ(display.clipboardClears, 1);
    EXPECT_EQ(statusOf(kClipboard), text(507));
    EXPECT_EQ(iconOf(kClipboard), 9);
}

}  // namespace tidvane::tests
