// Any bytes as a plug-in file: it is read and run, and what no one may empty is still there behind it.
#include "base/runtime_error.h"
#include "fuzz/fuzz.h"
#include "plugins/dPlugCleaner.h"
#include "support/program_fixture.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tidvane;
    tests::ProgramFixture fixture;
    platform::MemoryFiles& files = fixture.machine.files;
    fixture.putBeside("PlugIns\\any.tdp", fuzz::textOf(data, size));
    files.putFile("C:\\Windows\\Temp\\old.tmp", "x");
    files.putFile("C:\\Users\\Anna\\AppData\\Local\\Program\\cache\\deep\\file.bin", "x");

    plugins::dPlugCleaner cleaner(fixture.program);
    cleaner.setFilename(fixture.program.inProgramFolder("PlugIns\\any.tdp"));
    fuzz::require(cleaner.IsLoaded(), "the file is there");
    (void)cleaner.PlugTitle();
    (void)cleaner.PlugWarningEnglish();
    try {
        cleaner.PhasePlugInfo();
    } catch (const base::RuntimeError&) {
        // An empty value in FILES ends the pass.
    }
    for (const char* place :
         {"C:\\Windows", "C:\\Windows\\System32", "C:\\Users", "C:\\Users\\Anna", "C:\\Program Files"}) {
        fuzz::require(files.FolderExists(place), place);
    }
    fuzz::require(fixture.machine.registryTree.find("Machine\\Software") != nullptr, "the hive's first keys stay");
    return 0;
}
