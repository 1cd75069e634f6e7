#include "host/window/DesktopFrame.h"

#include <algorithm>

namespace host::window {

namespace {

int bottomReserved(const DesktopFrame::Screen& s) {
    return (s.frame.y() + s.frame.height()) - (s.available.y() + s.available.height());
}

} // namespace

std::optional<int> DesktopFrame::dockHeightAtBottom(const std::vector<Screen>& screens) {
    if (screens.empty()) {
        return std::nullopt;
    }
    const int bottom = bottomReserved(screens.front());
    if (bottom == 0) {
        return std::nullopt;
    }
    return bottom;
}

bool DesktopFrame::isMenuBarHidden(const std::vector<Screen>& screens) {
    if (screens.empty()) {
        return false;
    }
    const Screen& first = screens.front();
    const int reserved = first.frame.height() - first.available.height() - dockHeightAtBottom(screens).value_or(0);
    return reserved < kMenuBarHeightEstimate + 1;
}

QRect DesktopFrame::frameBelowMenuBar(const std::vector<Screen>& screens, std::size_t index, bool separateSpaces) {
    const Screen& screen = screens.at(index);
    QRect rect = screen.frame;
    if (isMenuBarHidden(screens)) {
        return rect;
    }
    if (index != 0 && !separateSpaces) {
        return rect;
    }
    const int topAndBottom = screen.frame.height() - screen.available.height();
    const int bottom = bottomReserved(screen);
    const int menuBar = std::max(0, topAndBottom - bottom - 1);
    // Only the height changes; with y growing downwards the top edge moves down to keep the
    // bottom edge where it is.
    rect.setTop(screen.frame.top() + menuBar);
    return rect;
}

QRect DesktopFrame::windowFrame(const std::vector<Screen>& screens, std::size_t index, bool extendBelowMenuBar,
                                bool separateSpaces) {
    if (extendBelowMenuBar) {
        return screens.at(index).frame;
    }
    QRect rect = frameBelowMenuBar(screens, index, separateSpaces);
    rect.setTop(rect.top() - 1);
    return rect;
}

} // namespace host::window
