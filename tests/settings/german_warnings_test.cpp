// What the options tell and ask about the user's own files, where the program is German.
#include "settings/newer_files.h"

#include <algorithm>
#include <utility>
#include "support/app_fixture.h"

namespace tidvane::settings {
namespace {

struct GermanWarnings : tests::AppFixture {
    GermanWarnings() { speakGerman(); }
    bool warned(const std::string& line) {
        return std::find(display.warnings.begin(), display.warnings.end(), line) != display.warnings.end();
    }
};

TEST_F(GermanWarnings, AreGivenOfListsAtTheVeryFirstLoad) {
    machine.files.putFile(inFolder("td_folders.dat"), "C:\\Data, old\r\nC:\\cut");
    (void)options();
    EXPECT_TRUE(
        warned("td_folders.dat: Ein Komma oder ein Anführungszeichen macht mehrere Einträge aus der Zeile "
               "C:\\Data, old"));
    EXPECT_TRUE(
        warned("td_folders.dat: Die letzte Zeile hat kein Zeilenende und ist vielleicht abgeschnitten: "
               "C:\\cut"));
}

TEST_F(GermanWarnings, AskAboutAnEntryThatIsTakenApart) {
    machine.files.take(inFolder("td_ban.dat"));
    options().chkActivateOwnFolder.Value = 1;
    options().tmrCustom.fire();
    options().txtAddFolderPath.setText("C:\\Data, old");
    options().cmdAddFolderPath.press();
    EXPECT_TRUE(warned("td_ban.dat fehlt im Programmordner: Nur die überall geschützten Orte werden abgelehnt."));
    ASSERT_FALSE(display.boxes.empty());
    EXPECT_EQ(display.boxes.back().text,
              "Ein Komma oder ein Anführungszeichen zerlegt diesen Eintrag, sobald die Liste wieder geladen "
              "wird:\r\n\r\nC:\\Data\r\nold\r\n\r\nTrotzdem aufnehmen?");
}

TEST_F(GermanWarnings, AskBeforeNewerFilesAreReplaced) {
    (void)options();
    for (const auto& [file, moment] : {std::pair{"C:\\old", 100U}, std::pair{"C:\\new", 200U}}) {
        machine.files.putFile(file);
        machine.files.setTimes(file, {moment, moment, moment});
    }
    EXPECT_EQ(questionOfNewerFiles(program, {{"C:\\old", "C:\\new"}}),
              "Diese Dateien sind neuer als die, durch die sie ersetzt würden:\r\n\r\nC:\\new\r\n\r\n"
              "Trotzdem ersetzen?");
}

}  // namespace
}  // namespace tidvane::settings
