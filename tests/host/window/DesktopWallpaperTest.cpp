#include "host/window/DesktopWallpaper.h"

#include "host/clock/ClockFonts.h"
#include "host/settings/Settings.h"
#include "host/view/SceneContent.h"
#include "host/view/WallpaperView.h"
#include "host/window/DesktopWindow.h"

#include "tests/host/app/FakeSystem.h"
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

// A scene that only records what reaches it; it never gets to make a renderer here, since the
// offscreen platform has no OpenGL.
class RecordingContent : public view::SceneContent {
public:
    std::unique_ptr<view::FrameRenderer> makeRenderer() override { return nullptr; }
    void setSceneSettings(bool v, float period) override {
        vignette = v;
        cameraPeriod = period;
    }
    bool vignette = true;
    float cameraPeriod = 0.0f;
};

class DesktopWallpaperTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        view::WallpaperView::setContextFailureHandler([this](const char*) { ++contextFailures; });
        ASSERT_TRUE(dir.isValid());
        settings = std::make_unique<settings::Settings>(dir.filePath(QStringLiteral("nivalis.conf")));
        screens.plug(new FakePlatformScreen(QStringLiteral("LEFT"), QRect(0, 0, 1920, 1080), QRect(0, 32, 1920, 1048)),
                     true);
        right = screens.plug(
            new FakePlatformScreen(QStringLiteral("RIGHT"), QRect(1920, 0, 1280, 1024), QRect(1920, 0, 1280, 1024)));
        auto recording = std::make_unique<RecordingContent>();
        content = recording.get();
        output = std::make_unique<DesktopWallpaper>(*settings, &events, std::move(recording));
    }

    void TearDown() override {
        output.reset();
        view::WallpaperView::setContextFailureHandler(nullptr);
    }

    QTemporaryDir dir;
    std::unique_ptr<settings::Settings> settings;
    testing::FakeScreens screens;
    FakePlatformScreen* right = nullptr;
    testing::FakeSystemEvents events;
    RecordingContent* content = nullptr;
    std::unique_ptr<DesktopWallpaper> output;
    int contextFailures = 0;
};

TEST_F(DesktopWallpaperTest, WindowIsMadeOnTheStoredDisplayWithItsContentHidden) {
    settings->display.write(Display::of(right->screen())->id);
    output->createWindow();
    ASSERT_NE(output->window(), nullptr);
    EXPECT_EQ(output->window()->geometry(), QRect(1920, -1, 1280, 1025));
    EXPECT_FALSE(output->window()->isVisible());
    ASSERT_NE(output->view(), nullptr);
    EXPECT_EQ(output->view()->parent(), output->window());
    EXPECT_TRUE(output->isContentHidden());
    EXPECT_FALSE(output->view()->isVisible());

    output->showWindow();
    EXPECT_TRUE(output->window()->isVisible());
    EXPECT_TRUE(output->view()->isVisible());
    EXPECT_FALSE(output->isContentHidden());
    output->orderOut();
    EXPECT_FALSE(output->window()->isVisible());
}

TEST_F(DesktopWallpaperTest, ValuesGivenBeforeTheWindowReachTheViewWhenItIsMade) {
    output->setPreferredFramesPerSecond(60);
    output->setPaused(false);
    output->createWindow();
    EXPECT_EQ(output->view()->preferredFramesPerSecond(), 60);
    EXPECT_FALSE(output->view()->isPaused());
}

TEST_F(DesktopWallpaperTest, PausedViewArmsNoTimerAtAll) {
    output->createWindow();
    output->setClockEnabled(true);
    output->setPaused(false);
    EXPECT_TRUE(output->view()->hasActiveTimers());
    output->setPaused(true);
    EXPECT_FALSE(output->view()->hasActiveTimers());
    output->setPreferredFramesPerSecond(20);
    EXPECT_FALSE(output->view()->hasActiveTimers());
    EXPECT_EQ(output->frameCount(), 0u);
}

TEST_F(DesktopWallpaperTest, RebuildingTheContentMakesANewViewThatKeepsRateAndPause) {
    output->createWindow();
    output->setPreferredFramesPerSecond(20);
    output->setPaused(false);
    output->showWindow();
    view::WallpaperView* first = output->view();
    QSignalSpy destroyed(first, &QObject::destroyed);
    output->rebuildContent();
    EXPECT_EQ(destroyed.count(), 1);
    ASSERT_NE(output->view(), nullptr);
    EXPECT_EQ(output->view()->preferredFramesPerSecond(), 20);
    EXPECT_FALSE(output->view()->isPaused());
    EXPECT_TRUE(output->view()->isVisible());
}

TEST_F(DesktopWallpaperTest, ViewTriesToAppearOnceTheEventLoopHasHadATurn) {
    output->createWindow();
    EXPECT_EQ(contextFailures, 0);
    QTest::qWait(10);
    // No GL here: the view says so through the handler and stays without a renderer.
    EXPECT_EQ(contextFailures, 1);
    EXPECT_FALSE(output->view()->hasAppeared());
    EXPECT_FALSE(output->hasRenderer());
}

TEST_F(DesktopWallpaperTest, SceneAndClockSettingsReachSceneAndClockStyle) {
    output->setSceneSettings(false, 2.25f);
    EXPECT_FALSE(content->vignette);
    EXPECT_FLOAT_EQ(content->cameraPeriod, 2.25f);

    output->setClockEnabled(false);
    output->setClockFont(QStringLiteral("Oswald"));
    output->setClockTimeFormat(QStringLiteral("HH:mm"));
    output->setClockOpacity(0.4);
    output->setClockSize(180.0f);
    const clock::ClockStyleManager& style = output->clockStyle();
    EXPECT_FALSE(style.enabled());
    EXPECT_EQ(style.fontName(), "Oswald");
    EXPECT_EQ(style.timeFormat(), "HH:mm");
    EXPECT_DOUBLE_EQ(style.opacity(), 0.4);
    EXPECT_EQ(style.selectedFont().pixelSize(), 180);
}

TEST_F(DesktopWallpaperTest, TargetDisplayMovesTheWindowOnUpdateAndWakeReappliesIt) {
    output->createWindow();
    EXPECT_EQ(output->window()->geometry(), QRect(0, 30, 1920, 1050));
    output->setTargetDisplay(Display::of(right->screen())->id);
    output->updateFrame();
    EXPECT_EQ(output->window()->geometry(), QRect(1920, -1, 1280, 1025));

    QSignalSpy frames(output->window(), &DesktopWindow::frameUpdated);
    emit events.deviceDidWake();
    QTest::qWait(10);
    EXPECT_EQ(frames.count(), 1);
}

TEST_F(DesktopWallpaperTest, ShowOnAllSpacesIsKeptByTheWindow) {
    output->createWindow();
    EXPECT_TRUE(output->window()->showsOnAllSpaces());
    output->setShowOnAllSpaces(false);
    EXPECT_FALSE(output->window()->showsOnAllSpaces());
}

} // namespace
} // namespace host::window
