// The boxes that let the cache tasks of the browsers go further.
#include "tasks/browser_fixture.h"

namespace tidvane::tests {

namespace {

const std::string kFirefox = "\\Mozilla\\FireFox\\Profiles\\abc.default\\";
const std::string kChrome = kLocal + "\\Google\\Chrome\\User Data\\Default\\";

struct InDepth {
    int step;
    forms::CheckBox settings::frmOptions::*box;
    std::string target;
};
const std::vector<InDepth> kBoxes{
    {35, &settings::frmOptions::chkMozillaINDepthCleanOfflineCache, kLocal + kFirefox + "OfflineCache\\o"},
    {35, &settings::frmOptions::chkMozillaINDepthCleanTestPilotErrorLogs,
     kRoaming + kFirefox + "TestPilotErrorLog.log"},
    {44, &settings::frmOptions::chkOperaINDepthClean, kLocal + "\\Opera\\Opera\\thumbnails\\t"},
    {50, &settings::frmOptions::chkChromeINDepthClean, kChrome + "JumplistIcons\\i"},
};

}  // namespace

struct BrowsersInDepth : BrowserTasks {
    BrowsersInDepth() {
        machine.files.putFile(kRoaming + "\\Mozilla\\FireFox\\profiles.ini",
                              "[Profile0]\r\nPath=Profiles/abc.default\r\n");
        put({kLocal + kFirefox + "Cache\\", kRoaming + kFirefox, kLocal + "\\Opera\\Opera\\cache\\",
             kChrome + "Cache\\"});
    }
};

TEST_F(BrowsersInDepth, GreyedBoxesAreOff) {
    for (const InDepth& row : kBoxes) {
        put({row.target});
        for (const int value : {2, 0, 1}) {
            tick(gate(row.step));  // its event unticks the further box, so that comes behind
            (options().*row.box).Value = value;
            run(row.step);
            expectRow(row.step, 507, 9);
            EXPECT_EQ(machine.files.has(row.target), value != 1) << row.target << " " << value;
        }
    }
}

}  // namespace tidvane::tests
