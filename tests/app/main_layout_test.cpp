// Where the controls of the main window stand.
#include "app/main_layout.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tidvane::tests {

using app::MainLayout;
using app::mainLayout;
using app::Rectangle;

namespace {
int smallest(const MainLayout& layout) {
    int size = 1 << 30;
    for (const Rectangle* part : {&layout.pane, &layout.tabs, &layout.list, &layout.log, &layout.buttons}) {
        size = std::min({size, part->width, part->height, part->left, part->top});
    }
    return size;
}
}  // namespace

TEST(MainLayoutTest, GivesNoControlANegativeSizeOrPlace) {
    for (int width = -500; width <= 30000; width += 250) {
        for (int height = -500; height <= 20000; height += 250) {
            for (const bool log : {true, false}) {
                for (const bool themed : {true, false}) {
                    ASSERT_GE(smallest(mainLayout(width, height, log, themed)), 0) << width << " x " << height;
                }
            }
        }
    }
}

TEST(MainLayoutTest, ShowsEverythingAtTheSmallestSize) {
    const MainLayout layout = mainLayout(11430, 5050, true, false);
    for (const Rectangle* part : {&layout.pane, &layout.tabs, &layout.list, &layout.log, &layout.buttons}) {
        EXPECT_GT(part->width, 0);
        EXPECT_GT(part->height, 0);
    }
}

TEST(MainLayoutTest, GivesTheLogAFixedHeightAndTheListTheRest) {
    const MainLayout low = mainLayout(12000, 9000, true, true);
    const MainLayout high = mainLayout(12000, 12000, true, true);
    EXPECT_EQ(low.log.height, 3180);
    EXPECT_EQ(high.log.height, 3180);
    EXPECT_EQ(high.list.height, low.list.height + 3000);
}

TEST(MainLayoutTest, GivesTheListTheWholePageWhileTheLogIsClosed) {
    EXPECT_EQ(mainLayout(12000, 9000, false, true).log.height, 0);
    EXPECT_EQ(mainLayout(12000, 9000, false, true).list.height, mainLayout(12000, 9000, true, true).list.height + 3180);
}

TEST(MainLayoutTest, IsTighterWithATheme) {
    EXPECT_GT(mainLayout(12000, 9000, true, true).list.width, mainLayout(12000, 9000, true, false).list.width);
}

TEST(MainLayoutTest, KeepsTheButtonsInsideTheWindow) {
    for (const int height : {5050, 7000, 12000}) {
        const MainLayout layout = mainLayout(11430, height, true, true);
        EXPECT_LE(layout.buttons.top + layout.buttons.height, height) << height;
    }
}

}  // namespace tidvane::tests
