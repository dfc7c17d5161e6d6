// List files and the file of bans as no one would write them: empty, cut, binary, huge.
#include <gtest/gtest.h>

#include <array>
#include <chrono>

#include "options_fixture.h"
#include "settings/bans.h"
#include "settings/list_files.h"
#include "settings/log_font_file.h"
#include "settings/own_entries.h"

namespace tidvane::settings {
namespace {

using Rows = std::vector<std::string>;

constexpr std::array kBoxes{&frmOptions::lstFolders, &frmOptions::lstFiles, &frmOptions::lstSearchMasks};

// A minute for what takes a second: a cost that grows with the square of the lines would not come to an end.
constexpr std::chrono::seconds kLongest{60};

struct DamagedLists : testing::Test {
    OptionsFixture machine;
    const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();

    void TearDown() override { EXPECT_LT(std::chrono::steady_clock::now() - start, kLongest); }

    void put(const std::string& bytes) {
        for (const char* file : kListFiles) machine.putBeside(file, bytes);
    }
    Rows shown(std::size_t list) { return rows(machine.options().*kBoxes[list]); }
    void pressOk() {
        machine.options().cmdOK.setValue(true);
        machine.program.windows.sweep();
    }
    void forgetWindow() {
        if (forms::Form* form = machine.program.windows.ifLoaded(frmOptions::kName))
            machine.program.windows.unload(*form);
        machine.program.windows.sweep();
    }
    int warningsWith(const std::string& words) {
        int count = 0;
        for (const std::string& warning : machine.display.warnings) {
            count += warning.find(words) != std::string::npos ? 1 : 0;
        }
        return count;
    }
};

TEST_F(DamagedLists, AnEmptyFileIsAnEmptyListAndStaysOne) {
    put("");
    for (std::size_t list = 0; list < kBoxes.size(); ++list) EXPECT_EQ(shown(list), Rows{});
    pressOk();
    for (const char* file : kListFiles) EXPECT_EQ(machine.beside(file), "");
    EXPECT_TRUE(machine.display.warnings.empty());
}

TEST_F(DamagedLists, AFileCutAnywhereGivesItsLinesUpToThere) {
    const Rows whole{
        "C:\\Data\\Gr\xC3\xB6\xC3\x9F"
        "e",
        "HKEY_CURRENT_USER\\Software\\X", "*.tmp", "D:\\a b\\c"};
    std::string bytes;
    for (const std::string& row : whole) bytes += machine.program.codePage().fromUtf8(row) + "\r\n";
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        forgetWindow();
        put(bytes.substr(0, cut));
        for (std::size_t list = 0; list < kBoxes.size(); ++list) {
            const Rows found = shown(list);
            ASSERT_LE(found.size(), whole.size());
            for (std::size_t row = 0; row < found.size(); ++row) {
                if (row + 1 < found.size()) {
                    EXPECT_EQ(found[row], whole[row]) << cut;
                } else {
                    EXPECT_TRUE(whole[row].starts_with(found[row])) << cut << ": " << found[row];
                    EXPECT_FALSE(found[row].empty());
                }
            }
        }
        // What was read is what OK writes.
        const Rows before = shown(0);
        pressOk();
        EXPECT_EQ(shown(0), before) << cut;
    }
}

TEST_F(DamagedLists, ALastLineWithoutAnEndIsToldSinceItMayHaveBeenCut) {
    machine.putBeside("td_folders.dat", "C:\\Data\\Old\r\nC:\\Da");
    EXPECT_EQ(shown(0), (Rows{"C:\\Data\\Old", "C:\\Da"}));
    forgetWindow();
    (void)shown(0);
    EXPECT_EQ(warningsWith("may have been cut: C:\\Da"), 1);
    EXPECT_EQ(machine.display.warnings.size(), 1u);
}

TEST_F(DamagedLists, EveryByteSurvivesLoadAndOk) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        if (value == '\r' || value == ',' || value == '"') continue;
        bytes += std::string("x") + static_cast<char>(value) + "y\r\n";
    }
    put(bytes);
    EXPECT_EQ(shown(0).size(), 253u);
    pressOk();
    for (const char* file : kListFiles) EXPECT_EQ(machine.beside(file), bytes);
}

TEST_F(DamagedLists, WhatALineWasTakenApartIntoIsWrittenByTheNextOk) {
    put("C:\\a, b\r\n\"C:\\c\"\r\nC:\\d\r\n");
    const Rows parts{"C:\\a", "b", "C:\\c", "C:\\d"};
    for (std::size_t list = 0; list < kBoxes.size(); ++list) EXPECT_EQ(shown(list), parts);
    EXPECT_GT(warningsWith("makes several entries of the line"), 0);
    // Looking alone changes nothing; OK does, and the next load finds nothing to take apart.
    for (const char* file : kListFiles) EXPECT_EQ(machine.beside(file), "C:\\a, b\r\n\"C:\\c\"\r\nC:\\d\r\n");
    pressOk();
    for (const char* file : kListFiles) EXPECT_EQ(machine.beside(file), "C:\\a\r\nb\r\nC:\\c\r\nC:\\d\r\n");
    machine.display.warnings.clear();
    for (std::size_t list = 0; list < kBoxes.size(); ++list) EXPECT_EQ(shown(list), parts);
    EXPECT_TRUE(machine.display.warnings.empty());
}

TEST_F(DamagedLists, NulsAreCharactersLikeOthers) {
    const std::string bytes("C:\\a\0b\r\n\0\0\0\r\nC:\\c\r\n", 19);
    put(bytes);
    EXPECT_EQ(shown(0), (Rows{std::string("C:\\a\0b", 6), std::string("\0\0\0", 3), "C:\\c"}));
    pressOk();
    EXPECT_EQ(machine.beside("td_folders.dat"), bytes);
}

TEST_F(DamagedLists, AFileWithLineFeedsAloneIsOneEntryAndKept) {
    put("C:\\a\nC:\\b\n");
    EXPECT_EQ(shown(0), (Rows{"C:\\a\nC:\\b\n"}));
    pressOk();
    EXPECT_EQ(machine.beside("td_folders.dat"), "C:\\a\nC:\\b\n\r\n");
    EXPECT_EQ(shown(0), (Rows{"C:\\a\nC:\\b\n"}));
}

// Bytes of a picture, quotes and commas among them: what writing and reading can take from it, they have taken soon.
TEST_F(DamagedLists, NoiseComesToRestBehindAFewRounds) {
    const std::string file = "C:\\noise.dat";
    unsigned state = 12345;
    for (int round = 0; round < 200; ++round) {
        std::string bytes;
        for (int i = 0; i < 300; ++i) {
            state = state * 1103515245u + 12345u;
            bytes += static_cast<char>(state >> 24);
        }
        machine.files().putFile(file, bytes);
        ListItems read;
        for (int again = 0; again < 3; ++again) {
            ASSERT_TRUE(platform::ok(readListFile(machine.program, file, read)));
            ASSERT_TRUE(platform::ok(writeListFile(machine.program, file, read.items)));
        }
        const Rows once = read.items;
        ASSERT_TRUE(platform::ok(readListFile(machine.program, file, read)));
        EXPECT_EQ(read.items, once) << round;
        EXPECT_TRUE(read.splitLines.empty()) << round;
    }
}

TEST_F(DamagedLists, AFolderInPlaceOfAFileIsToldAndLeft) {
    for (const char* file : kListFiles) machine.files().putFolder(OptionsFixture::inFolder(file));
    machine.files().putFile(OptionsFixture::inFolder("td_folders.dat\\x"));
    for (std::size_t list = 0; list < kBoxes.size(); ++list) EXPECT_EQ(shown(list), Rows{});
    EXPECT_EQ(warningsWith("cannot be read"), 3);
    machine.options().lstFolders.AddItem("C:\\new");
    pressOk();
    EXPECT_TRUE(machine.files().has(OptionsFixture::inFolder("td_folders.dat\\x")));
    EXPECT_EQ(warningsWith("is not written"), 3);
}

TEST_F(DamagedLists, AMillionLinesAreReadAndWrittenInSeconds) {
    std::string bytes;
    constexpr int kLines = 1'000'000;
    for (int i = 0; i < kLines; ++i) bytes += "C:\\D" + std::to_string(i) + "\r\n";
    machine.putBeside("td_folders.dat", bytes);
    EXPECT_EQ(machine.options().lstFolders.ListCount(), kLines);
    EXPECT_EQ(machine.options().lstFolders.List(kLines - 1), "C:\\D999999");
    pressOk();
    EXPECT_TRUE(machine.beside("td_folders.dat") == bytes);
    EXPECT_TRUE(splitLinesOfLists(machine.program).empty());
}

TEST_F(DamagedLists, ManyLinesThatSplitAreToldInAFewWords) {
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) bytes += std::to_string(i) + ",x\r\n";
    machine.putBeside("td_folders.dat", bytes);
    EXPECT_EQ(machine.options().lstFolders.ListCount(), 200'000);
    EXPECT_EQ(machine.display.warnings.size(), 4u);
    EXPECT_EQ(warningsWith("so it is with 99997 more line(s)"), 1);
    EXPECT_EQ(splitLinesOfLists(machine.program).size(), 100'000u);
}

TEST_F(DamagedLists, OneHugeLineIsOneEntryAndQuotedShort) {
    std::string line(2'000'000, 'x');
    line[10] = '\x1B';
    machine.putBeside("td_folders.dat", line);
    ASSERT_EQ(machine.options().lstFolders.ListCount(), 1);
    EXPECT_EQ(machine.options().lstFolders.List(0).size(), line.size());
    ASSERT_EQ(machine.display.warnings.size(), 1u);
    EXPECT_LT(machine.display.warnings[0].size(), 400u);
    EXPECT_EQ(machine.display.warnings[0].find('\x1B'), std::string::npos);
}

TEST_F(DamagedLists, OpenQuotesWithoutEndDoNotSwallowTheFile) {
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) bytes += "\"C:\\a" + std::to_string(i) + "\r\n";
    machine.putBeside("td_folders.dat", bytes);
    EXPECT_EQ(machine.options().lstFolders.ListCount(), 100'000);
    EXPECT_EQ(machine.options().lstFolders.List(7), "C:\\a7");
}

TEST_F(DamagedLists, CommasAloneAreNoEntries) {
    machine.putBeside("td_folders.dat", std::string(1'000'000, ',') + "\r\n" + std::string(1'000'000, '"') + "\r\n");
    EXPECT_EQ(machine.options().lstFolders.ListCount(), 0);
}

// --- bans

TEST_F(DamagedLists, ABanFileOfAnyBytesNeitherHangsNorCrashes) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    unsigned state = 4711;
    for (int round = 0; round < 50; ++round) {
        std::string bytes;
        for (int i = 0; i < 30'000; ++i) {
            state = state * 1103515245u + 12345u;
            bytes += static_cast<char>(state >> 24);
        }
        bytes += "\r\nC:\\DEAR\r\n";
        machine.putBeside("td_ban.dat", bytes);
        EXPECT_TRUE(FindInFile(machine.program, file, "c:\\dear", kBanBlockSize)) << round;
        EXPECT_FALSE(FindInFile(machine.program, file, "C:\\Somebody's own folder", kBanBlockSize)) << round;
    }
}

TEST_F(DamagedLists, ABanFileCutAnywhereStillRefusesItsWholeLines) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    const std::string bytes = "*\r\nC:\\A\r\nC:\\B\r\n";
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        machine.putBeside("td_ban.dat", bytes.substr(0, cut));
        EXPECT_EQ(FindInFile(machine.program, file, "C:\\A", kBanBlockSize), cut >= 9) << cut;
        EXPECT_EQ(FindInFile(machine.program, file, "C:\\B", kBanBlockSize), cut >= 15) << cut;
        EXPECT_EQ(FindInFile(machine.program, file, "*", kBanBlockSize), cut >= 1) << cut;
    }
}

TEST_F(DamagedLists, AHugeBanFileWithoutLineEndsIsSearchedInOneGo) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    machine.putBeside("td_ban.dat", std::string(5'000'000, 'a'));
    EXPECT_FALSE(FindInFile(machine.program, file, "C:\\Data", kBanBlockSize));
    EXPECT_TRUE(FindInFile(machine.program, file, "AAA", kBanBlockSize));
}

TEST_F(DamagedLists, AnEmptyBanFileBansNothing) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    machine.putBeside("td_ban.dat", "");
    for (const char* text : {"", "*", "C:\\Windows"}) {
        EXPECT_FALSE(FindInFile(machine.program, file, text, kBanBlockSize)) << text;
    }
}

TEST_F(DamagedLists, NulsInABanFileAreCharactersLikeOthers) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    machine.putBeside("td_ban.dat", std::string("*\r\nC:\\A\0B\r\n\0\0\r\nC:\\C\r\n", 21));
    const auto banned = [&](const std::string& text) { return FindInFile(machine.program, file, text, kBanBlockSize); };
    EXPECT_TRUE(banned(std::string("c:\\a\0b", 6)));
    EXPECT_TRUE(banned("B"));
    EXPECT_FALSE(banned("C:\\A"));
    EXPECT_TRUE(banned("C:\\C"));
}

TEST_F(DamagedLists, ABanFileOfAMillionLinesIsSearchedToItsEnd) {
    const std::string file = OptionsFixture::inFolder("td_ban.dat");
    std::string bytes;
    for (int i = 0; i < 1'000'000; ++i) bytes += "C:\\D" + std::to_string(i) + "\r\n";
    machine.putBeside("td_ban.dat", bytes);
    EXPECT_TRUE(FindInFile(machine.program, file, "C:\\D999999", kBanBlockSize));
    EXPECT_FALSE(FindInFile(machine.program, file, "C:\\D1000000", kBanBlockSize));
}

TEST_F(DamagedLists, ABanFileThatIsAFolderBansNothing) {
    machine.files().putFolder(OptionsFixture::inFolder("td_ban.dat"));
    machine.options().chkActivateOwnFolder.Value = 1;
    machine.options().txtAddFolderPath.setText("C:\\Windows");
    machine.options().cmdAddFolderPath.press();
    EXPECT_EQ(rows(machine.options().lstFolders), (Rows{"C:\\Windows"}));
}

// --- the font of the log

TEST_F(DamagedLists, AFontFileCutAnywhereGivesItsWholeLines) {
    const std::string bytes = "Courier New\r\n11\r\nTrue\r\nFalse\r\n";
    const forms::FontChoice current{"Arial", 8.25, false, true, 0};
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        machine.putBeside("td_flog.dat", bytes.substr(0, cut));
        const auto read = readLogFont(machine.program, current);
        ASSERT_TRUE(read) << cut;
        EXPECT_EQ(read->name, cut == 0 ? "Arial" : bytes.substr(0, std::min<std::size_t>(cut, 11))) << cut;
        EXPECT_EQ(read->size, cut < 14 ? 8.25 : cut == 14 ? 1.0 : 11.0) << cut;
        EXPECT_EQ(read->bold, cut >= 21) << cut;
        EXPECT_EQ(read->italic, cut < 28) << cut;
    }
}

TEST_F(DamagedLists, AFontFileOfAnyBytesLeavesAFontThatCanBeShown) {
    unsigned state = 99;
    for (int round = 0; round < 200; ++round) {
        std::string bytes;
        for (int i = 0; i < 300; ++i) {
            state = state * 1103515245u + 12345u;
            bytes += static_cast<char>(round % 2 == 0 ? "\r\n019.,eTrufals\0 -+x"[(state >> 24) % 20] : state >> 24);
        }
        machine.putBeside("td_flog.dat", bytes);
        const auto read = readLogFont(machine.program, {"Arial", 8.25, false, true, 0});
        ASSERT_TRUE(read) << round;
        EXPECT_FALSE(read->name.empty()) << round;
        EXPECT_GT(read->size, 0) << round;
    }
}

TEST_F(DamagedLists, AHugeFontFileIsReadInItsFirstLinesAlone) {
    std::string bytes = "Verdana\r\n10\r\nTrue\r\nTrue\r\n";
    for (int i = 0; i < 1'000'000; ++i) bytes += "x\r\n";
    machine.putBeside("td_flog.dat", bytes);
    const auto read = readLogFont(machine.program, {"Arial", 8.25, false, false, 0});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name, "Verdana");
    EXPECT_EQ(read->size, 10);
}

}  // namespace
}  // namespace tidvane::settings
