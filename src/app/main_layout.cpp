#include "app/main_layout.h"

#include <algorithm>

namespace tidvane::app {

namespace {
constexpr int kPaneWidth = 3000;
constexpr int kStatusBarHeight = 375;
constexpr int kTabHeader = 400;
constexpr int kButtonRow = 495;
constexpr int kThemedMargin = 60;
constexpr int kPlainMargin = 210;
constexpr int kSmallestList = 600;
int atLeastZero(int size) {
    return std::max(size, 0);
}
}  // namespace

MainLayout mainLayout(int width, int height, bool logVisible, bool themed) {
    const int margin = themed ? kThemedMargin : kPlainMargin;
    MainLayout layout;
    const int inner = atLeastZero(height - kStatusBarHeight);
    layout.pane = {0, 0, std::min(kPaneWidth, atLeastZero(width)), inner};
    layout.tabs = {layout.pane.width, 0, atLeastZero(width - layout.pane.width), inner};
    const int left = layout.tabs.left + margin;
    const int pageWidth = atLeastZero(layout.tabs.width - 2 * margin);
    const int pageHeight = atLeastZero(inner - kTabHeader - kButtonRow - 3 * margin);
    // In a low window the log gives way, so that the list never disappears.
    const int log = logVisible ? std::min(kLogPaneHeight, atLeastZero(pageHeight - kSmallestList)) : 0;
    layout.list = {left, kTabHeader + margin, pageWidth, atLeastZero(pageHeight - log)};
    layout.log = {left, layout.list.top + layout.list.height + margin, pageWidth, log};
    layout.buttons = {left, layout.log.top + layout.log.height + margin, pageWidth, kButtonRow};
    return layout;
}

}  // namespace tidvane::app
