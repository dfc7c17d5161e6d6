#include <gtest/gtest.h>

#include "app/autostart.h"
#include "settings/frmOptions.h"
#include "support/program_fixture.h"

namespace tidvane::tests {
namespace {

// Passes nothing on and keeps what it was asked.
class RecordingScriptHost final : public platform::ScriptHost {
public:
    bool RegWrite(const std::string& fullName, const std::string&) override {
        written.push_back(fullName);
        return true;
    }
    bool RegDelete(const std::string& fullName) override {
        deleted.push_back(fullName);
        return true;
    }
    std::vector<std::string> written;
    std::vector<std::string> deleted;
};

struct AutostartRoot : ::testing::Test {
    platform::MemoryPlatform machine;
    ScriptedDisplay display;
    RecordingScriptHost host;
    settings::Program program{withHost(machine.platform(), host), display};

    AutostartRoot() { app::offerAllWindows(program); }

    static platform::Platform withHost(const platform::Platform& all, platform::ScriptHost& scriptHost) {
        return {all.files,         all.profiles,    all.registry,     all.shell,  all.processes,
                all.session,       all.environment, all.browserCache, all.system, all.network,
                all.restorePoints, scriptHost,      all.clock,        all.events, all.removed};
    }
    void store(const std::string& keys) {
        machine.files.putFile(program.inProgramFolder("td_config.ini"), "[frmOptions]\r\n" + keys);
    }
};

TEST_F(AutostartRoot, IsNeverLeftOutOfAKey) {
    store("chkStartWindows=1\r\ncboAutoStart=-1\r\n");
    ASSERT_TRUE(program.get<settings::frmOptions>().chkStartWindows.ticked());
    app::applyAutostartAtStart(program);
    for (const std::string& key : host.written) EXPECT_TRUE(key.starts_with("HKEY_")) << key;
    for (const std::string& key : host.deleted) EXPECT_TRUE(key.starts_with("HKEY_")) << key;
    EXPECT_TRUE(host.written.empty());
}

TEST_F(AutostartRoot, IsTheStoredOne) {
    store("chkStartWindows=1\r\ncboAutoStart=1\r\n");
    app::applyAutostartAtStart(program);
    EXPECT_EQ(
        host.written,
        (std::vector<std::string>{"HKEY_CURRENT_USER\\SOFTWARE\\MICROSOFT\\WINDOWS\\CURRENTVERSION\\RUN\\Tidvane"}));
}

}  // namespace
}  // namespace tidvane::tests
