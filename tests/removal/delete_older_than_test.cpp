#include "removal/delete_older_than.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_platform.h"

namespace tidvane::removal {
namespace {

namespace attribute = platform::attribute;

// The clock of the machine stands at noon of 3 November 2009.
struct DeleteOlderThanTest : testing::Test {
    platform::MemoryPlatform machine;
    platform::Platform services = machine.platform();
    void put(const std::string& path, int year, int month, int day) {
        machine.files.putFile(path, "x");
        machine.files.setTime(path, base::toFileTime({year, month, day, 10, 0, 0}));
    }
    void run(std::int16_t days) { DeleteOlderThan(services, "C:\\Temp", days); }
};

TEST_F(DeleteOlderThanTest, TakesWhatIsOlderThanTheLimitAndNotWhatIsAsOld) {
    put("C:\\Temp\\eleven", 2009, 10, 23);
    put("C:\\Temp\\ten", 2009, 10, 24);
    run(10);
    EXPECT_FALSE(machine.files.has("C:\\Temp\\eleven"));
    EXPECT_TRUE(machine.files.has("C:\\Temp\\ten"));
}

TEST_F(DeleteOlderThanTest, ZeroDaysSparesWhatWasChangedToday) {
    put("C:\\Temp\\today", 2009, 11, 3);
    put("C:\\Temp\\yesterday", 2009, 11, 2);
    run(0);
    EXPECT_TRUE(machine.files.has("C:\\Temp\\today"));
    EXPECT_FALSE(machine.files.has("C:\\Temp\\yesterday"));
}

TEST_F(DeleteOlderThanTest, ReadsADateDayFirstInEveryLocale) {
    // 2 November, written "2/11/2009": read month first it would be 11 February, and gone.
    put("C:\\Temp\\young", 2009, 11, 2);
    run(30);
    EXPECT_TRUE(machine.files.has("C:\\Temp\\young"));
}

TEST_F(DeleteOlderThanTest, ClearsAttributesOfOldFilesFirst) {
    put("C:\\Temp\\old", 2001, 1, 1);
    machine.files.setAttributes("C:\\Temp\\old", attribute::ReadOnly | attribute::Hidden | attribute::System);
    run(10);
    EXPECT_FALSE(machine.files.has("C:\\Temp\\old"));
}

TEST_F(DeleteOlderThanTest, NeverTouchesNamesThatBeginWithADot) {
    put("C:\\Temp\\.old", 2001, 1, 1);
    put("C:\\Temp\\.folder\\old", 2001, 1, 1);
    run(10);
    EXPECT_TRUE(machine.files.has("C:\\Temp\\.old"));
    EXPECT_TRUE(machine.files.has("C:\\Temp\\.folder\\old"));
}

TEST_F(DeleteOlderThanTest, FoldersGoOnlyByEmptiness) {
    put("C:\\Temp\\mixed\\old", 2001, 1, 1);
    put("C:\\Temp\\mixed\\young", 2009, 11, 3);
    put("C:\\Temp\\allold\\deep\\old", 2001, 1, 1);
    machine.files.putFolder("C:\\Temp\\emptybefore");
    run(10);
    EXPECT_TRUE(machine.files.has("C:\\Temp\\mixed\\young"));
    EXPECT_FALSE(machine.files.has("C:\\Temp\\mixed\\old"));
    EXPECT_FALSE(machine.files.has("C:\\Temp\\allold"));
    EXPECT_FALSE(machine.files.has("C:\\Temp\\emptybefore"));
    EXPECT_TRUE(machine.files.hasFolder("C:\\Temp"));
}

TEST_F(DeleteOlderThanTest, LeavesAFileWhoseDateCannotBeRead) {
    put("C:\\Temp\\odd", 2001, 1, 1);
    machine.files.refuse("C:\\Temp\\odd", platform::operation::Look, platform::Status::Denied);
    run(10);
    EXPECT_TRUE(machine.files.has("C:\\Temp\\odd"));
}

TEST_F(DeleteOlderThanTest, UsesThePlainDeleteWhateverMethodIsChosen) {
    put("C:\\Temp\\old", 2001, 1, 1);
    run(10);
    EXPECT_TRUE(machine.shell.recycled.empty());
    EXPECT_TRUE(machine.files.overwritten.empty());
}

TEST_F(DeleteOlderThanTest, DoesNotEnterALinkToAFolder) {
    put("C:\\keep\\old", 2001, 1, 1);
    machine.files.putFolder("C:\\Temp");
    machine.files.putLink("C:\\Temp\\link", "C:\\keep");
    run(10);
    EXPECT_TRUE(machine.files.has("C:\\keep\\old"));
}

TEST_F(DeleteOlderThanTest, NeverTakesWhatALinkPointsTo) {
    put("C:\\keep\\wanted", 2001, 1, 1);
    machine.files.putFolder("C:\\Temp");
    machine.files.putLink("C:\\Temp\\link", "C:\\keep\\wanted");
    machine.files.setTime("C:\\Temp\\link", base::toFileTime({2001, 1, 1, 0, 0, 0}));
    run(10);
    EXPECT_TRUE(machine.files.has("C:\\keep\\wanted"));
}

TEST_F(DeleteOlderThanTest, DoesNothingForAnEmptyMissingOrProtectedFolder) {
    put("C:\\Windows\\old.txt", 2001, 1, 1);
    DeleteOlderThan(services, "", 0);
    DeleteOlderThan(services, "C:\\missing", 0);
    DeleteOlderThan(services, "C:\\Windows", 0);
    EXPECT_TRUE(machine.files.has("C:\\Windows\\old.txt"));
}

TEST(GetFileDate, WritesDayAndMonthWithoutPaddingAndTheTimeWithIt) {
    platform::MemoryPlatform machine;
    machine.files.putFile("C:\\a", "x");
    platform::FileTimes times;
    times.creation = base::toFileTime({2009, 11, 3, 7, 5, 9});
    times.lastAccess = base::toFileTime({2010, 1, 20, 17, 45, 0});
    times.lastWrite = base::toFileTime({2011, 12, 31, 0, 0, 1});
    machine.files.setTimes("C:\\a", times);
    EXPECT_EQ(GetFileDate(machine.files, "C:\\a", kCreation), "3/11/2009  07:05:09");
    EXPECT_EQ(GetFileDate(machine.files, "C:\\a", kLastAccess), "20/1/2010  17:45:00");
    EXPECT_EQ(GetFileDate(machine.files, "C:\\a", kLastWrite), "31/12/2011  00:00:01");
    EXPECT_EQ(GetFileDate(machine.files, "", kLastWrite), "");
    EXPECT_EQ(GetFileDate(machine.files, "C:\\missing", kLastWrite), "");
}

}  // namespace
}  // namespace tidvane::removal
