// A window that is closed and opened again speaks the language it spoke before.
#include <map>
#include <string>

#include "settings/modLanguage.h"
#include "support/app_fixture.h"

namespace tidvane::tests {
namespace {

class ReopenedWindow : public AppFixture, public testing::WithParamInterface<const char*> {
protected:
    static std::map<std::string, std::string> captionsOf(const forms::Form& form) {
        std::map<std::string, std::string> captions{{form.Name, form.Caption.get()}};
        for (const forms::Control* control : form.Controls()) {
            const std::string place = control->Index ? "(" + std::to_string(*control->Index) + ")" : "";
            captions[control->Name + place] = control->Caption.get();
        }
        return captions;
    }
};

TEST_P(ReopenedWindow, SaysWhatItSaidBefore) {
    start();
    forms::Form* form = program.windows.get(GetParam());
    ASSERT_NE(form, nullptr);
    settings::ApplyLanguage(program);
    const auto before = captionsOf(*form);
    ASSERT_TRUE(program.windows.unload(*form));
    forms::Form* again = program.windows.get(GetParam());
    ASSERT_NE(again, form);
    for (const auto& [name, caption] : captionsOf(*again)) {
        // Its load says whether its program is there.
        if (name == "cmdCleanRAM") continue;
        EXPECT_EQ(caption, before.at(name)) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ReopenedWindow,
                         testing::Values("frmDiskSizeStats", "frmOptions", "frmMoreToConfigure", "frmStarter",
                                         "frmResources", "frmMozillaDir", "frmOperaDir", "frmChromeDir", "frmSafariDir",
                                         "frmIEInDepthClean", "frmWidget", "frmPlugsInfo", "frmIECache", "frmIECookies",
                                         "frmManualSearch", "frmSearchMasks", "frmTempAge"),
                         [](const auto& window) { return std::string(window.param); });

}  // namespace
}  // namespace tidvane::tests
