#include "host/window/DesktopFrame.h"

#include <gtest/gtest.h>

namespace host::window {
namespace {

// Screens as X11 reports them: y grows downwards; `available` is what panels leave free.
DesktopFrame::Screen screen(int x, int width, int height, int top, int bottom) {
    return {QRect(x, 0, width, height), QRect(x, top, width, height - top - bottom)};
}

TEST(DesktopFrameTest, WindowReachesUpToThePanelOverlappingItByTwoPixels) {
    // A 32-pixel top panel: the window starts at 30 and ends at the screen's bottom edge.
    const std::vector screens{screen(0, 1920, 1080, 32, 0)};
    EXPECT_EQ(DesktopFrame::frameBelowMenuBar(screens, 0, true), QRect(0, 31, 1920, 1049));
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 0, false, true), QRect(0, 30, 1920, 1050));
}

TEST(DesktopFrameTest, ExtendingBelowThePanelGivesExactlyTheScreen) {
    const std::vector screens{screen(0, 1920, 1080, 32, 48), screen(1920, 1280, 1024, 0, 0)};
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 0, true, true), QRect(0, 0, 1920, 1080));
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 1, true, true), QRect(1920, 0, 1280, 1024));
}

TEST(DesktopFrameTest, BottomPanelDoesNotShortenTheWindow) {
    const std::vector screens{screen(0, 1920, 1080, 32, 48)};
    EXPECT_EQ(DesktopFrame::dockHeightAtBottom(screens), 48);
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 0, false, true), QRect(0, 30, 1920, 1050));
}

TEST(DesktopFrameTest, NoOrThinTopPanelCountsAsHiddenAndTheWindowGrowsOnePixelAbove) {
    // Nothing reserved, a bottom panel only, and a 24-pixel panel (under the 25 that counts).
    for (const auto& s : {screen(0, 1920, 1080, 0, 0), screen(0, 1920, 1080, 0, 48), screen(0, 1920, 1080, 24, 0)}) {
        const std::vector screens{s};
        EXPECT_TRUE(DesktopFrame::isMenuBarHidden(screens));
        EXPECT_EQ(DesktopFrame::frameBelowMenuBar(screens, 0, true), s.frame);
        EXPECT_EQ(DesktopFrame::windowFrame(screens, 0, false, true), QRect(0, -1, 1920, 1081));
    }
    // 25 pixels is a menu bar: 24 of it is cut, then one pixel is given back.
    const std::vector panel25{screen(0, 1920, 1080, 25, 0)};
    EXPECT_FALSE(DesktopFrame::isMenuBarHidden(panel25));
    EXPECT_EQ(DesktopFrame::windowFrame(panel25, 0, false, true), QRect(0, 23, 1920, 1057));
}

TEST(DesktopFrameTest, SecondScreenWithoutSeparateSpacesKeepsItsWholeFrame) {
    const std::vector screens{screen(0, 1920, 1080, 32, 0), screen(1920, 1920, 1080, 30, 0)};
    EXPECT_EQ(DesktopFrame::frameBelowMenuBar(screens, 1, false), QRect(1920, 0, 1920, 1080));
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 1, false, false), QRect(1920, -1, 1920, 1081));
}

TEST(DesktopFrameTest, SecondScreenWithSeparateSpacesAvoidsItsOwnPanel) {
    const std::vector screens{screen(0, 1920, 1080, 32, 0), screen(1920, 1920, 1080, 30, 0)};
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 1, false, true), QRect(1920, 28, 1920, 1052));
    // A second screen without a panel of its own: its whole frame plus the one pixel.
    const std::vector bare{screen(0, 1920, 1080, 32, 0), screen(1920, 1280, 1024, 0, 0)};
    EXPECT_EQ(DesktopFrame::windowFrame(bare, 1, false, true), QRect(1920, -1, 1280, 1025));
}

TEST(DesktopFrameTest, HiddenPanelOnTheFirstScreenIgnoresPanelsElsewhere) {
    // Whether the menu bar is hidden is asked of the first screen only.
    const std::vector screens{screen(0, 1920, 1080, 0, 0), screen(1920, 1920, 1080, 30, 0)};
    EXPECT_EQ(DesktopFrame::windowFrame(screens, 1, false, true), QRect(1920, -1, 1920, 1081));
}

TEST(DesktopFrameTest, NoScreensMeansNoPanelAndNoDock) {
    const std::vector<DesktopFrame::Screen> none;
    EXPECT_FALSE(DesktopFrame::isMenuBarHidden(none));
    EXPECT_EQ(DesktopFrame::dockHeightAtBottom(none), std::nullopt);
    EXPECT_EQ(DesktopFrame::dockHeightAtBottom(std::vector{screen(0, 800, 600, 30, 0)}), std::nullopt);
}

} // namespace
} // namespace host::window
