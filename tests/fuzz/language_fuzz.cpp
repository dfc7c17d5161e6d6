// Any bytes as the language file of a program that starts: the texts are taken, and the windows still load.
#include "fuzz/fuzz.h"
#include "settings/frmOptions.h"
#include "settings/modLanguage.h"
#include "support/program_fixture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tidvane;
    tests::ProgramFixture fixture;
    fixture.putBeside("Any.lng", fuzz::textOf(data, size));
    fuzz::require(settings::LoadLanguageFile(fixture.program, fixture.program.inProgramFolder("Any.lng")) == 0,
                  "a file that is there is read");
    fuzz::require(fixture.program.get<settings::frmOptions>().cboKillMethod.ListCount() == 3,
                  "the options offer three ways of removing");
    return 0;
}
