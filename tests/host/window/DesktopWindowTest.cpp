#include "host/window/DesktopWindow.h"

#include "host/settings/Settings.h"
#include "host/window/DisplayObservable.h"

#include "tests/host/app/TestApplication.h"
#include "tests/host/window/FakeScreens.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace host::window {
namespace {

using testing::FakePlatformScreen;

// Two monitors side by side: the primary with a 32-pixel top panel, the other bare.
class DesktopWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        settings = std::make_unique<settings::Settings>(dir.filePath(QStringLiteral("nivalis.conf")));
        left = screens.plug(new FakePlatformScreen(QStringLiteral("LEFT"), QRect(0, 0, 1920, 1080),
                                                   QRect(0, 32, 1920, 1048), QStringLiteral("NVL"),
                                                   QStringLiteral("Polar 27"), QStringLiteral("901NTAB12345")),
                            true);
        right = plugRight();
    }

    FakePlatformScreen* plugRight() {
        return screens.plug(new FakePlatformScreen(QStringLiteral("RIGHT"), QRect(1920, 0, 1280, 1024),
                                                   QRect(1920, 0, 1280, 1024)));
    }

    static std::optional<Display> displayOf(FakePlatformScreen* screen) { return Display::of(screen->screen()); }

    // Lets queued screen handling run.
    static void settle() { QTest::qWait(20); }

    QTemporaryDir dir;
    std::unique_ptr<settings::Settings> settings;
    testing::FakeScreens screens;
    FakePlatformScreen* left = nullptr;
    FakePlatformScreen* right = nullptr;
};

TEST_F(DesktopWindowTest, OrderedScreensPutThePrimaryFirst) {
    const std::vector<QScreen*> ordered = DesktopWindow::orderedScreens();
    ASSERT_GE(ordered.size(), 2u);
    EXPECT_EQ(ordered.front(), left->screen());
    EXPECT_EQ(DesktopWindow::screenOf(ordered, displayOf(right)), right->screen());
    EXPECT_EQ(DesktopWindow::screenOf(ordered, std::nullopt), nullptr);
    EXPECT_EQ(DesktopWindow::screenOf(ordered, Display(QUuid::createUuid())), nullptr);
}

TEST_F(DesktopWindowTest, WithoutATargetTheWindowIsBelowThePrimarysPanel) {
    DesktopWindow window(*settings, std::nullopt);
    EXPECT_EQ(window.geometry(), QRect(0, 30, 1920, 1050));
    EXPECT_EQ(window.screen(), left->screen());
}

TEST_F(DesktopWindowTest, TargetMonitorGetsTheWindow) {
    DesktopWindow window(*settings, displayOf(right));
    EXPECT_EQ(window.targetScreen(), right->screen());
    EXPECT_EQ(window.geometry(), QRect(1920, -1, 1280, 1025));
}

TEST_F(DesktopWindowTest, UnpluggedTargetFallsBackToThePrimaryAndComesBackWithIt) {
    const std::optional<Display> target = displayOf(right);
    DesktopWindow window(*settings, target);
    QSignalSpy frames(&window, &DesktopWindow::frameUpdated);

    screens.unplug(right);
    settle();
    EXPECT_EQ(window.geometry(), QRect(0, 30, 1920, 1050));
    EXPECT_EQ(window.targetDisplay(), target);

    right = plugRight();
    settle();
    EXPECT_EQ(window.geometry(), QRect(1920, -1, 1280, 1025));
    EXPECT_GE(frames.count(), 2);
}

TEST_F(DesktopWindowTest, NewTargetMovesTheWindowAtTheNextUpdate) {
    DesktopWindow window(*settings, std::nullopt);
    window.setTargetDisplay(displayOf(right));
    EXPECT_EQ(window.geometry(), QRect(0, 30, 1920, 1050));
    window.updateFrame();
    EXPECT_EQ(window.geometry(), QRect(1920, -1, 1280, 1025));
}

TEST_F(DesktopWindowTest, ExtendingBelowThePanelFollowsTheKey) {
    DesktopWindow window(*settings, std::nullopt);
    settings->extendVeilBelowMenuBar.write(true);
    EXPECT_EQ(window.geometry(), QRect(0, 0, 1920, 1080));
    settings->extendVeilBelowMenuBar.write(false);
    EXPECT_EQ(window.geometry(), QRect(0, 30, 1920, 1050));
}

TEST_F(DesktopWindowTest, PanelChangesAndWakesReapplyTheFrame) {
    DesktopWindow window(*settings, std::nullopt);
    // The panel grows to 40 pixels.
    left->setGeometry(QRect(0, 0, 1920, 1080), QRect(0, 40, 1920, 1040));
    settle();
    EXPECT_EQ(window.geometry(), QRect(0, 38, 1920, 1042));

    QSignalSpy frames(&window, &DesktopWindow::frameUpdated);
    DisplayObservable::instance().notifyWake();
    settle();
    EXPECT_EQ(frames.count(), 1);
}

TEST_F(DesktopWindowTest, WindowIsBorderlessBelowAndTransparentToInput) {
    DesktopWindow window(*settings, std::nullopt);
    const Qt::WindowFlags flags = window.flags();
    EXPECT_TRUE(flags.testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowStaysOnBottomHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowTransparentForInput));
    EXPECT_TRUE(flags.testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_FALSE(window.isInteractive());
    EXPECT_FALSE(window.isVisible());

    window.orderFront();
    EXPECT_TRUE(window.isVisible());
    window.orderOut();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(DesktopWindowTest, InteractiveWindowTakesInputAgain) {
    DesktopWindow window(*settings, std::nullopt);
    window.setInteractive(true);
    EXPECT_FALSE(window.flags().testFlag(Qt::WindowTransparentForInput));
    EXPECT_FALSE(window.flags().testFlag(Qt::WindowStaysOnBottomHint));
    settings->bringBrowsingModeToFront.write(true);
    window.updateLevel();
    EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
    window.setInteractive(false);
    EXPECT_TRUE(window.flags().testFlag(Qt::WindowTransparentForInput));
}

TEST_F(DesktopWindowTest, DisplayOfAnEdidMonitorIsItsEdidIdentity) {
    EXPECT_EQ(displayOf(left),
              Display::fromIdentity("NVL", "Polar 27", "901NTAB12345", "SOMEWHERE-ELSE"));
    EXPECT_EQ(Display::main(), displayOf(left));
}

} // namespace
} // namespace host::window
