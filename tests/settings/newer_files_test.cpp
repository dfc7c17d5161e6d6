// Copies that would write over newer files.
#include "settings/newer_files.h"

#include "support/app_fixture.h"

namespace tidvane::settings {
namespace {

class NewerFiles : public tests::AppFixture {
protected:
    void date(const std::string& file, platform::FileTime moment) {
        machine.files.putFile(file, "x");
        machine.files.setTimes(file, {moment, moment, moment});
    }
};

TEST_F(NewerFiles, NewerFilesOfATargetAreNamed) {
    date("C:\\Program Files\\Tidvane\\a.ini", 100);
    date("C:\\Backup\\a.ini", 200);
    date("C:\\Program Files\\Tidvane\\b.ini", 300);
    date("C:\\Backup\\b.ini", 200);
    date("C:\\Program Files\\Tidvane\\c.ini", 300);
    date("C:\\Backup\\same.ini", 300);
    const std::string from = "C:\\Program Files\\Tidvane\\";
    const std::string to = "C:\\Backup\\";
    EXPECT_EQ(questionOfNewerFiles(program, {{from + "b.ini", to + "b.ini"},
                                             {from + "c.ini", to + "c.ini"},
                                             {from + "c.ini", to + "same.ini"},
                                             {from + "missing.ini", to + "a.ini"}}),
              "");
    EXPECT_EQ(questionOfNewerFiles(program, {{from + "a.ini", to + "a.ini"}, {from + "b.ini", to + "b.ini"}}),
              "These files are newer than those that would replace them:\r\n\r\nC:\\Backup\\a.ini\r\n\r\nReplace them "
              "all the same?");
}

TEST_F(NewerFiles, OfManyNewerFilesTheFirstOnesAreNamed) {
    std::vector<PlannedCopy> copies;
    for (int number = 0; number < 14; ++number) {
        const std::string name = std::to_string(number) + ".ini";
        date("C:\\From\\" + name, 100);
        date("C:\\To\\" + name, 200);
        copies.push_back({"C:\\From\\" + name, "C:\\To\\" + name});
    }
    const std::string question = questionOfNewerFiles(program, copies);
    EXPECT_TRUE(question.find("C:\\To\\9.ini\r\nand 4 more.\r\n") != std::string::npos) << question;
    EXPECT_EQ(question.find("C:\\To\\10.ini"), std::string::npos);
}

}  // namespace
}  // namespace tidvane::settings
