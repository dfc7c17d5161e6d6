// What a front end warns of once the program is loaded.
#include "frontend/guards.h"

#include <gtest/gtest.h>

#include "support/app_fixture.h"

namespace tidvane::frontend {
namespace {

class Guards : public tests::AppFixture {
protected:
    bool textsAreMissed() {
        start();
        display.warnings.clear();
        warnOfMissingTexts(program, display);
        return !display.warnings.empty();
    }
};

TEST_F(Guards, NothingIsToldWhereALanguageFileGivesTexts) {
    EXPECT_FALSE(textsAreMissed());
}

TEST_F(Guards, ALanguageFileThatLacksMostTextsIsOne) {
    machine.files.putFile(inFolder("English.lng"), "299 Options\r\n");
    EXPECT_FALSE(textsAreMissed());
}

TEST_F(Guards, AMissingLanguageFileIsTold) {
    machine.files.take(inFolder("English.lng"));
    ASSERT_TRUE(textsAreMissed());
    EXPECT_NE(display.warnings[0].find("*.lng"), std::string::npos);
}

TEST_F(Guards, ALanguageFileWithoutAnyTextIsToldAsIfItWereMissing) {
    for (const char* bytes : {"", "\r\n\r\n", "; a note\r\n", "\x01\x02\x03"}) {
        tests::AppFixtureRun fresh;
        fresh.machine.files.putFile(inFolder("English.lng"), bytes);
        fresh.start();
        fresh.display.warnings.clear();
        warnOfMissingTexts(fresh.program, fresh.display);
        EXPECT_EQ(fresh.display.warnings.size(), 1u) << bytes;
    }
}

}  // namespace
}  // namespace tidvane::frontend
