#include "platform/common/clear_tracks_command.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/memory/memory_browser_cache.h"

namespace tidvane::platform {
namespace {

TEST(ClearTracksCommand, KnowsBothSpellingsOfTheTasks) {
    EXPECT_EQ(clearTracksNumber("RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 1"), 1);
    EXPECT_EQ(clearTracksNumber("RunDll32.exe inetcpl.cpl, ClearMyTracksByProcess 4351"), 4351);
}

TEST(ClearTracksCommand, CaseAndBlanksDoNotMatter) {
    EXPECT_EQ(clearTracksNumber("  RUNDLL32\tINETCPL.CPL , clearmytracksbyprocess   16 "), 16);
    EXPECT_EQ(clearTracksNumber("rundll32.exe InetCpl.cpl,ClearMyTracksByProcess 0008"), 8);
}

TEST(ClearTracksCommand, EveryOtherCommandLineIsNone) {
    for (const char* other : {
             "",
             "RunDll32.exe",
             "RunDll32.exe InetCpl.cpl",
             "RunDll32.exe InetCpl.cpl,",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess ",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess1",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess one",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess -1",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess +1",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 1 2",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 1x",
             "RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 4294967297",
             "RunDll32.exe InetCpl.cpl ClearMyTracksByProcess 1",
             "RunDll32.exeInetCpl.cpl,ClearMyTracksByProcess 1",
             "RunDll32.exe shell32.dll,Control_RunDLL 1",
             "C:\\Temp\\RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 1",
             "\"RunDll32.exe\" InetCpl.cpl,ClearMyTracksByProcess 1",
         }) {
        EXPECT_EQ(clearTracksNumber(other), std::nullopt) << other;
    }
}

TEST(ClearTracksCommand, ClearsOnceAndGivesAProcessThatHasEnded) {
    MemoryBrowserCache cache;
    const auto process = runClearTracksCommand("RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 2", cache);
    ASSERT_NE(process, nullptr);
    EXPECT_TRUE(process->wait(0));
    EXPECT_EQ(cache.tracksCleared, std::vector<int>{2});
}

TEST(ClearTracksCommand, AProcessEndsAlsoWhenNothingCouldBeCleared) {
    MemoryBrowserCache cache;
    cache.tracksCanBeCleared = false;
    EXPECT_NE(runClearTracksCommand("RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 1", cache), nullptr);
}

TEST(ClearTracksCommand, AnotherCommandLineStartsAndClearsNothing) {
    MemoryBrowserCache cache;
    EXPECT_EQ(runClearTracksCommand("C:\\Windows\\notepad.exe", cache), nullptr);
    EXPECT_TRUE(cache.tracksCleared.empty());
}

}  // namespace
}  // namespace tidvane::platform
