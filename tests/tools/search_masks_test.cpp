#include <gtest/gtest.h>

#include "settings/built_in_masks.h"
#include "settings/frmOptions.h"
#include "support/program_fixture.h"
#include "tools/frmSearchMasks.h"

namespace tidvane::tests {
namespace {

using Rows = std::vector<std::string>;

class SearchMasks : public ::testing::Test, protected ProgramFixture {
protected:
    tools::frmSearchMasks& window() { return program.get<tools::frmSearchMasks>(); }
    settings::frmOptions& options() { return program.get<settings::frmOptions>(); }
    static Rows rowsOf(const forms::ListBox& list) {
        Rows rows;
        for (int row = 0; row < list.ListCount(); ++row) rows.push_back(list.List(row));
        return rows;
    }
    std::string counted() {
        window().tmrSearchMasks.fire();
        return window().lblSelected.Caption;
    }
    int rowOf(const std::string& typed) {
        window().txtSearchMasks.setText(typed);
        return window().lstSearchMasks.ListIndex();
    }
};

TEST_F(SearchMasks, ListsTheReadyMadeMasksInTheirOrder) {
    const Rows rows = rowsOf(window().lstSearchMasks);
    EXPECT_EQ(rows, Rows(settings::kBuiltInMasks.begin(), settings::kBuiltInMasks.end()));
    ASSERT_EQ(rows.size(), 49u);
    EXPECT_EQ(rows[0], "*.---");
    EXPECT_EQ(rows[1], "*.$$$");
    EXPECT_EQ(rows[10], "~*.*");
    EXPECT_EQ(rows[24], "*.dot");
    EXPECT_EQ(rows[45], "*0???????.nch");
    EXPECT_EQ(rows[47], "*Deleted Items.dbx");
    EXPECT_EQ(rows[48], "thumbcache*");
}

TEST_F(SearchMasks, AddsTheMarkedMasksFromFirstToLastAndCloses) {
    options().lstSearchMasks.AddItem("*.mine");
    window().lstSearchMasks.setSelected(9, true);  // *.tmp
    window().lstSearchMasks.setSelected(3, true);  // *.bak
    window().cmdAdd.press();
    EXPECT_EQ(rowsOf(options().lstSearchMasks), (Rows{"*.mine", "*.bak", "*.tmp"}));
    EXPECT_EQ(program.windows.ifLoaded("frmSearchMasks"), nullptr);
}

TEST_F(SearchMasks, CancelClosesAndAddsNothing) {
    window().lstSearchMasks.setSelected(3, true);
    EXPECT_EQ(window().cmdCancel.Caption, program.LangText(301));
    window().cmdCancel.press();
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
    EXPECT_EQ(program.windows.ifLoaded("frmSearchMasks"), nullptr);
}

TEST_F(SearchMasks, AddsPastTheBanAndDoublesWhatIsThere) {
    putBeside("td_ban.dat", "x\r\n*.BAK\r\n");
    options().lstSearchMasks.AddItem("*.bak");
    window().lstSearchMasks.setSelected(3, true);
    window().cmdAdd.press();
    EXPECT_EQ(rowsOf(options().lstSearchMasks), (Rows{"*.bak", "*.bak"}));
    EXPECT_TRUE(display.boxes.empty());
}

TEST_F(SearchMasks, WithoutAMarkItAddsNothingAndClosesAllTheSame) {
    window().lstSearchMasks.setListIndex(3);  // the current row alone is no mark
    window().cmdAdd.press();
    EXPECT_EQ(options().lstSearchMasks.ListCount(), 0);
    EXPECT_EQ(program.windows.ifLoaded("frmSearchMasks"), nullptr);
}

TEST_F(SearchMasks, MarksAllAndNone) {
    window().cmdSelectAll.press();
    EXPECT_EQ(window().lstSearchMasks.SelCount(), 49);
    EXPECT_EQ(counted(), "49 / 49");
    window().cmdDeselectAll.press();
    EXPECT_EQ(window().lstSearchMasks.SelCount(), 0);
    EXPECT_EQ(counted(), "0 / 49");
    window().lstSearchMasks.setSelected(1, true);
    EXPECT_EQ(counted(), "1 / 49");
}

TEST_F(SearchMasks, TypingGoesToTheFirstRowThatBeginsSoAndFiltersNothing) {
    window().lstSearchMasks.setSelected(5, true);
    EXPECT_EQ(rowOf("*.b"), 3);
    EXPECT_EQ(rowOf("*.BAK"), 3);
    EXPECT_EQ(rowOf("thumb"), 48);
    EXPECT_EQ(rowOf("*DELETED i"), 47);
    EXPECT_EQ(rowOf("*.bak2"), -1);
    EXPECT_EQ(rowOf("bak"), -1);
    EXPECT_EQ(rowOf("*"), 0);
    EXPECT_EQ(rowOf("~"), 10);
    EXPECT_EQ(rowOf(""), 0);
    EXPECT_EQ(window().lstSearchMasks.ListCount(), 49);
    EXPECT_EQ(window().lstSearchMasks.SelCount(), 1);
}

TEST_F(SearchMasks, TellsWhichMasksTakeWhatMayStillBeNeeded) {
    program.LangText.set(826, "Masks");
    program.LangText.set(827, "Take care");
    program.LangText.set(559, "Search");
    program.LangText.set(811, "all");
    program.LangText.set(812, "none");
    program.LangText.set(351, "Add");
    EXPECT_EQ(window().Caption, std::string("Masks"));
    EXPECT_EQ(window().lblHint.Caption, std::string("Take care"));
    EXPECT_EQ(window().lstSearchMasks.ToolTipText, std::string("Take care"));
    EXPECT_EQ(window().lblSearch.Caption, std::string("Search"));
    EXPECT_EQ(window().cmdSelectAll.Caption, std::string("all"));
    EXPECT_EQ(window().cmdDeselectAll.Caption, std::string("none"));
    EXPECT_EQ(window().cmdAdd.Caption, std::string("Add"));
}

TEST_F(SearchMasks, OpensModallyFromTheOptionsWindow) {
    options().chkSearchTasks.Value = 1;
    display.inModal["frmSearchMasks"] = [](forms::Form& form) {
        auto& masks = dynamic_cast<tools::frmSearchMasks&>(form);
        masks.lstSearchMasks.setSelected(0, true);
        masks.cmdAdd.press();
    };
    options().cmdLoadSearchMasks.press();
    ASSERT_FALSE(display.shown.empty());
    EXPECT_EQ(display.shown.back().window, "frmSearchMasks");
    EXPECT_EQ(display.shown.back().owner, "frmOptions");
    EXPECT_TRUE(display.shown.back().modal);
    EXPECT_EQ(rowsOf(options().lstSearchMasks), (Rows{"*.---"}));
}

TEST_F(SearchMasks, StoresNothingOfItsOwn) {
    window().txtSearchMasks.setText("*.b");
    program.windows.unload(window());
    EXPECT_FALSE(machine.files.has(program.inProgramFolder("td_config.ini")));
    EXPECT_EQ(window().txtSearchMasks.Text(), "");
}

}  // namespace
}  // namespace tidvane::tests
