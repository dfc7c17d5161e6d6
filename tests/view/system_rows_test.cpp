// What the window shows in which a system is chosen.
#include "view/chooser/system_rows.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace tidvane::view {
namespace {

using frontend::FoundSystem;
using frontend::SystemDetails;
using frontend::SystemKind;

class SystemRowsTest : public ::testing::Test {
protected:
    static SystemDetails good(const std::string& user) {
        return {"Windows 7", user, 10'737'418'240, 107'374'182'400, true, true, {}};
    }
    static SystemDetails bad(const std::string& why) { return {{}, {}, 0, 0, false, false, why}; }
    SystemRows rows(Tongue tongue = Tongue::English) {
        return {{{SystemKind::Embedded, "/home/anna/.local/m", "Mine"},
                 {SystemKind::Wine, "/home/anna/.wine", "wine"},
                 {SystemKind::Volume, "/media/disk", "Disk"}},
                tongue,
                "/home/anna",
                [this](const FoundSystem& system) {
                    ++described[system.directory];
                    return details.at(system.directory);
                }};
    }
    static void describeAll(SystemRows& rows) {
        while (rows.describeNext() >= 0) {
        }
    }
    std::map<std::string, SystemDetails> details{{"/home/anna/.local/m", good("Anna")},
                                                 {"/home/anna/.wine", good("anna")},
                                                 {"/media/disk", bad("Not yet.")},
                                                 {"/srv/other", good("x")}};
    std::map<std::string, int> described;
};

TEST_F(SystemRowsTest, EachSystemIsDescribedOnceInItsTurn) {
    SystemRows systems = rows();
    EXPECT_TRUE(described.empty());
    EXPECT_EQ(systems.describeNext(), 0);
    EXPECT_EQ(described.size(), 1U);
    EXPECT_EQ(systems.describeNext(), 1);
    EXPECT_EQ(systems.describeNext(), 2);
    EXPECT_EQ(systems.describeNext(), -1);
    EXPECT_EQ(described["/home/anna/.wine"], 1);
}

TEST_F(SystemRowsTest, ARowTellsWhatIsKnown) {
    SystemRows systems = rows();
    EXPECT_EQ(systems.cell(0, SystemColumn::Name), "Mine");
    EXPECT_EQ(systems.cell(0, SystemColumn::Kind), "Own machine");
    EXPECT_EQ(systems.cell(0, SystemColumn::Windows), "...");
    EXPECT_EQ(systems.cell(0, SystemColumn::User), "");
    EXPECT_EQ(systems.cell(0, SystemColumn::FreeSpace), "");
    EXPECT_EQ(systems.cell(0, SystemColumn::Folder), "~/.local/m");
    describeAll(systems);
    EXPECT_EQ(systems.cell(0, SystemColumn::Windows), "Windows 7");
    EXPECT_EQ(systems.cell(0, SystemColumn::User), "Anna");
    EXPECT_EQ(systems.cell(0, SystemColumn::FreeSpace), "10.0 GB of 100.0 GB");
    EXPECT_EQ(systems.cell(1, SystemColumn::Kind), "Wine");
    EXPECT_EQ(systems.cell(2, SystemColumn::Folder), "/media/disk");
}

TEST_F(SystemRowsTest, WhatCannotBeOpenedIsNotOfferedAndSaysWhy) {
    SystemRows systems = rows();
    EXPECT_TRUE(systems.offered(2)) << "nothing is known yet";
    describeAll(systems);
    EXPECT_FALSE(systems.offered(2));
    EXPECT_EQ(systems.cell(2, SystemColumn::Windows), "cannot be opened");
    EXPECT_EQ(systems.problem(2), "Not yet.");
    EXPECT_EQ(systems.problem(0), "");
}

TEST_F(SystemRowsTest, WhatCannotBeCleanedNowIsOfferedAllTheSame) {
    details["/home/anna/.wine"].canBeCleaned = false;
    details["/home/anna/.wine"].problem = "A server runs.";
    SystemRows systems = rows();
    describeAll(systems);
    EXPECT_TRUE(systems.offered(1));
    EXPECT_EQ(systems.problem(1), "A server runs.");
}

TEST_F(SystemRowsTest, TheLastChosenIsSuggestedAsLongAsItIsOffered) {
    SystemRows systems = rows();
    EXPECT_EQ(systems.suggested("/home/anna/.wine"), 1);
    EXPECT_EQ(systems.suggested("/media/disk"), 2);
    EXPECT_EQ(systems.suggested("/gone"), 0);
    EXPECT_EQ(systems.suggested(""), 0);
    describeAll(systems);
    EXPECT_EQ(systems.suggested("/media/disk"), 0);
    EXPECT_EQ(SystemRows({}, Tongue::English, "", {}).suggested("/x"), -1);
}

TEST_F(SystemRowsTest, AFolderChosenByHandJoinsOnce) {
    SystemRows systems = rows();
    describeAll(systems);
    EXPECT_EQ(systems.add("/srv/other", SystemKind::Wine), 3);
    EXPECT_EQ(systems.cell(3, SystemColumn::Name), "other");
    EXPECT_EQ(systems.describeNext(), 3);
    EXPECT_EQ(systems.add("/srv/other", SystemKind::Wine), 3);
    EXPECT_EQ(systems.count(), 4);
    // It is looked at again: something may have changed there.
    EXPECT_EQ(systems.describeNext(), 3);
    EXPECT_EQ(systems.add("/srv/named", SystemKind::Embedded, "Sample machine"), 4);
    EXPECT_EQ(systems.cell(4, SystemColumn::Name), "Sample machine");
}

TEST_F(SystemRowsTest, GermanWordsHaveGermanNumbers) {
    SystemRows systems = rows(Tongue::German);
    describeAll(systems);
    EXPECT_EQ(systems.cell(0, SystemColumn::Kind), "Eigene Maschine");
    EXPECT_EQ(systems.cell(0, SystemColumn::FreeSpace), "10,0 GB von 100,0 GB");
    EXPECT_EQ(systems.cell(2, SystemColumn::Windows), "nicht zu öffnen");
}

TEST(ChooserWordsTest, EveryWordStandsInBothLanguages) {
    for (int at = 0; at <= static_cast<int>(Word::Create); ++at) {
        EXPECT_NE(std::string(word(Tongue::English, static_cast<Word>(at))), "") << at;
        EXPECT_NE(std::string(word(Tongue::German, static_cast<Word>(at))), "") << at;
    }
}

TEST(ChooserWordsTest, SizesAreShortInTheirUnit) {
    EXPECT_EQ(sizeWords(Tongue::English, 0), "0.0 KB");
    EXPECT_EQ(sizeWords(Tongue::English, 1536), "1.5 KB");
    EXPECT_EQ(sizeWords(Tongue::German, 1'610'612'736), "1,5 GB");
    EXPECT_EQ(sizeWords(Tongue::English, 5'629'499'534'213'120), "5120.0 TB");
}

// Sets a variable of this process for one test.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        if (value == nullptr) {
            ::unsetenv(name);
        } else {
            ::setenv(name, value, 1);
        }
    }
    ~Variable() {
        if (before_) {
            ::setenv(name_, before_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

TEST(ChooserWordsTest, TheFirstVariableThatIsSetDecidesOnTheLanguage) {
    struct Case {
        const char* all;
        const char* messages;
        const char* lang;
        Tongue tongue;
    };
    for (const Case& row :
         {Case{nullptr, nullptr, "de_AT.UTF-8", Tongue::German}, Case{"", "", "de", Tongue::German},
          Case{"C.UTF-8", "de_DE", "de_DE", Tongue::English}, Case{nullptr, "de.UTF-8", "en_GB.UTF-8", Tongue::German},
          Case{nullptr, nullptr, "den_X", Tongue::English}, Case{nullptr, nullptr, nullptr, Tongue::English}}) {
        const Variable all("LC_ALL", row.all);
        const Variable messages("LC_MESSAGES", row.messages);
        const Variable lang("LANG", row.lang);
        EXPECT_EQ(tongueOfHost(), row.tongue) << (row.lang == nullptr ? "none" : row.lang);
    }
}

}  // namespace
}  // namespace tidvane::view
