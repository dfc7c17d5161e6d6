// The free space of a drive as a text.
#include "app/modFreeSpace.h"

#include <gtest/gtest.h>

#include "support/app_fixture.h"

namespace tidvane::tests {

namespace {
constexpr std::uint64_t kKB = 1024;
constexpr std::uint64_t kMB = kKB * 1024;
constexpr std::uint64_t kGB = kMB * 1024;

std::string withUnit(std::uint64_t bytes, const base::Locale& locale = base::englishLocale()) {
    std::string unit;
    const std::string text = app::spaceText(bytes, locale, &unit);
    return text + " " + unit;
}
}  // namespace

TEST(SpaceText, ChoosesTheUnitWhoseCountIsNotBelowOne) {
    EXPECT_EQ(withUnit(0), "0 Bytes");
    EXPECT_EQ(withUnit(1), "1 Bytes");
    EXPECT_EQ(withUnit(1023), "1023 Bytes");
    EXPECT_EQ(withUnit(kKB), "1 KB");
    EXPECT_EQ(withUnit(kMB - 1), "1023.99 KB");
    EXPECT_EQ(withUnit(kMB), "1 MB");
    EXPECT_EQ(withUnit(800 * kMB), "800 MB");
    EXPECT_EQ(withUnit(kGB - 1), "1024 MB");  // 1023.99999 becomes 1024.0000 as a fixed-point number
    EXPECT_EQ(withUnit(kGB), "1 GB");
}

TEST(SpaceText, HasNoUnitBeyondGigabytes) {
    EXPECT_EQ(withUnit(4000 * kGB), "4000 GB");
    EXPECT_EQ(withUnit(40000 * kGB + kGB / 2), "40000.5 GB");
}

TEST(SpaceText, IsCutAndNotRoundedToTwoDecimals) {
    EXPECT_EQ(withUnit(kGB + kGB * 999 / 1000), "1.99 GB");
    EXPECT_EQ(withUnit(kKB + 6), "1 KB");  // 1.0059: the two noughts are not shown
    EXPECT_EQ(withUnit(kKB + 11), "1.01 KB");
    EXPECT_EQ(withUnit(kKB + 512), "1.5 KB");
}

TEST(SpaceText, KeepsFourDecimalsWithADecimalComma) {
    EXPECT_EQ(withUnit(kGB + kGB * 999 / 1000, base::germanLocale()), "1,999 GB");
    EXPECT_EQ(withUnit(kKB + 6, base::germanLocale()), "1,0059 KB");
    EXPECT_EQ(withUnit(1234 * kGB + kGB / 3, base::germanLocale()), "1234,3333 GB");
}

TEST(SpaceText, RoundsTheFourthDecimalHalfToEven) {
    // 1 + 1/32 KB = 1.03125 KB and 1 + 3/32 KB = 1.09375 KB: a five behind the fourth decimal.
    EXPECT_EQ(withUnit(kKB + 32, base::germanLocale()), "1,0312 KB");
    EXPECT_EQ(withUnit(kKB + 96, base::germanLocale()), "1,0938 KB");
}

struct FreeSpace : AppFixture {};

TEST_F(FreeSpace, AndTotalSpaceAreTakenOfTheDrive) {
    machine.files.addDrive('D', platform::DriveType::Fixed, 5 * kGB, 2000 * kGB);
    EXPECT_EQ(app::GetFreeSpaceText(program, "D:"), "5");
    EXPECT_EQ(app::GetTotalSpaceText(program, "D:"), "2000");
}

TEST_F(FreeSpace, IsZeroForADriveThatCannotBeRead) {
    std::string unit;
    EXPECT_EQ(app::GetFreeSpaceText(program, "Q:", &unit), "0");
    EXPECT_EQ(unit, "Bytes");
    EXPECT_EQ(app::GetTotalSpaceText(program, "Q:"), "0");
    EXPECT_TRUE(display.boxes.empty());
}

}  // namespace tidvane::tests
