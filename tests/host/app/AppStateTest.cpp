#include "host/app/AppState.h"

#include "host/menu/StatusItem.h"
#include "host/settings/Settings.h"
#include "tests/host/app/FakeOutput.h"
#include "tests/host/app/FakeSystem.h"
#include "tests/host/app/TestApplication.h"

#include <QAction>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace host::app {
namespace {

using system::PowerSource;
using testing::FakeOutput;
using testing::FakePowerSourceWatcher;
using testing::FakeSystemEvents;

class AppStateTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        settings = std::make_unique<settings::Settings>(dir.filePath(QStringLiteral("nivalis/nivalis.conf")));
    }

    /// AppState over the fakes; `withWatcher` false stands for a system without UPower.
    AppState& make(bool withWatcher = true) {
        std::unique_ptr<system::PowerSourceWatcher> owned;
        if (withWatcher) {
            auto made = std::make_unique<FakePowerSourceWatcher>();
            watcher = made.get();
            owned = std::move(made);
        }
        state = std::make_unique<AppState>(AppState::Services{*settings, output, events, std::move(owned), log});
        state->setRevealDuration(std::chrono::milliseconds(60));
        return *state;
    }

    /// AppState after its launch work has run.
    AppState& launch(bool withWatcher = true) {
        make(withWatcher);
        state->finishLaunching();
        output.calls.clear();
        log.str({});
        return *state;
    }

    QStringList logLines() const {
        return QString::fromStdString(log.str()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    /// Titles of the menu as it is about to open ("-" for a separator).
    QStringList openMenu() {
        emit state->menu().aboutToShow();
        QStringList titles;
        for (QAction* action : state->menu().actions()) {
            titles << (action->isSeparator() ? QStringLiteral("-") : action->text());
        }
        emit state->menu().aboutToHide();
        return titles;
    }

    void choose(const QString& title) {
        emit state->menu().aboutToShow();
        for (QAction* action : state->menu().actions()) {
            if (action->text() == title) {
                action->trigger();
                return;
            }
        }
        FAIL() << "no menu item " << title.toStdString();
    }

    QTemporaryDir dir;
    std::unique_ptr<settings::Settings> settings;
    FakeOutput output;
    FakeSystemEvents events;
    FakePowerSourceWatcher* watcher = nullptr;
    std::ostringstream log;
    std::unique_ptr<AppState> state;
};

TEST_F(AppStateTest, ConstructionLeavesWindowAndIconForTheEventLoop) {
    settings->fps.write(60);
    AppState& s = make();
    EXPECT_TRUE(s.isEnabled());
    EXPECT_FALSE(s.isScreenLocked());
    EXPECT_FALSE(s.isManuallyDisabled());
    EXPECT_EQ(s.statusItem(), nullptr);
    // The view starts at the stored rate before anything else.
    EXPECT_EQ(output.calls, QStringList{QStringLiteral("setFps(60)")});

    QCoreApplication::processEvents();
    ASSERT_NE(s.statusItem(), nullptr);
    EXPECT_TRUE(s.statusItem()->isVisible());
    EXPECT_EQ(output.callsStartingWith(QStringLiteral("createWindow")).size(), 1);
    s.finishLaunching();
    EXPECT_EQ(output.callsStartingWith(QStringLiteral("createWindow")).size(), 1) << "launch work runs once";
}

TEST_F(AppStateTest, LaunchAppliesEverySettingAndShowsTheWindowLast) {
    make();
    output.calls.clear();
    state->finishLaunching();
    const QStringList& calls = output.calls;
    ASSERT_FALSE(calls.isEmpty());
    EXPECT_EQ(calls.first(), QStringLiteral("createWindow"));
    // Subscription 18 is the first to show the window; 19 follows it; 17, 20 and 21 do not run.
    const qsizetype shown = calls.indexOf(QStringLiteral("showWindow"));
    ASSERT_GE(shown, 0);
    EXPECT_EQ(calls.count(QStringLiteral("showWindow")), 1);
    EXPECT_EQ(calls.at(shown - 1), QStringLiteral("setPaused(false)"));
    EXPECT_EQ(calls.indexOf(QStringLiteral("setShowOnAllSpaces(true)")), shown + 1);
    EXPECT_EQ(calls.last(), QStringLiteral("setShowOnAllSpaces(true)"));
    EXPECT_TRUE(output.callsStartingWith(QStringLiteral("setTargetDisplay")).isEmpty());
    EXPECT_FALSE(calls.contains(QStringLiteral("updateLevel")));
    QCoreApplication::processEvents();
    EXPECT_FALSE(output.calls.contains(QStringLiteral("rebuildContent")));

    // Every rate computed at launch is the same, from the watcher's initial run on.
    const QStringList lines = logLines();
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_EQ(lines.first(), QStringLiteral("powerSourceDidChange"));
    for (const QString& line : lines.mid(1)) {
        EXPECT_EQ(line, QStringLiteral("updateFps 30 false false"));
    }
    for (const QString& call : output.callsStartingWith(QStringLiteral("setFps"))) {
        EXPECT_EQ(call, QStringLiteral("setFps(30)"));
    }
    EXPECT_FALSE(state->statusItem()->appearsDisabled());
}

TEST_F(AppStateTest, WithoutWatcherNoPowerSourceLineAndNoBatteryLimit) {
    settings->fps.write(60);
    launch(false);
    EXPECT_EQ(state->powerSourceWatcher(), nullptr);
    state->updateFps();
    EXPECT_EQ(logLines(), QStringList{QStringLiteral("updateFps 60 false false")});
}

TEST_F(AppStateTest, LockDisableUnlockEnable) {
    launch();
    emit events.screenIsLocked(true);
    EXPECT_FALSE(state->isEnabled());
    EXPECT_TRUE(state->isPaused());
    EXPECT_EQ(output.calls.mid(output.calls.size() - 2),
              (QStringList{QStringLiteral("setPaused(true)"), QStringLiteral("orderOut")}));
    EXPECT_TRUE(state->statusItem()->appearsDisabled());

    choose(QStringLiteral("Disable"));
    EXPECT_TRUE(state->isManuallyDisabled());
    EXPECT_FALSE(state->isEnabled());

    emit events.screenIsLocked(false);
    EXPECT_FALSE(state->isScreenLocked());
    EXPECT_FALSE(state->isEnabled()) << "still disabled by the user";
    EXPECT_EQ(output.calls.last(), QStringLiteral("orderOut"));

    choose(QStringLiteral("Enable"));
    EXPECT_TRUE(state->isEnabled());
    EXPECT_FALSE(state->isPaused());
    EXPECT_EQ(output.calls.mid(output.calls.size() - 2),
              (QStringList{QStringLiteral("setPaused(false)"), QStringLiteral("showWindow")}));
    EXPECT_FALSE(state->statusItem()->appearsDisabled());
}

TEST_F(AppStateTest, DisableTwiceTogglesBackAndMenuTitleTellsTheWay) {
    launch();
    EXPECT_EQ(openMenu().first(), QStringLiteral("Disable"));
    state->toggleManuallyDisabled();
    EXPECT_FALSE(state->isEnabled());
    EXPECT_EQ(openMenu().first(), QStringLiteral("Enable"));
    state->toggleManuallyDisabled();
    EXPECT_TRUE(state->isEnabled());
    EXPECT_EQ(openMenu().first(), QStringLiteral("Disable"));
}

TEST_F(AppStateTest, UnlockDoesNotOverrideManualDisableButDisableDuringLockIsRemembered) {
    launch();
    state->toggleManuallyDisabled();
    state->setScreenLocked(true);
    state->setScreenLocked(false);
    EXPECT_FALSE(state->isEnabled());
    // Enabling while locked keeps it off until the unlock.
    state->setScreenLocked(true);
    state->toggleManuallyDisabled();
    EXPECT_FALSE(state->isEnabled());
    state->setScreenLocked(false);
    EXPECT_TRUE(state->isEnabled());
}

TEST_F(AppStateTest, DeactivateOnBatteryReevaluatesWithoutChangingTheResult) {
    launch();
    watcher->change(PowerSource::internalBattery);
    output.calls.clear();
    settings->deactivateOnBattery.write(true);
    EXPECT_TRUE(state->isEnabled()) << "the key does not stop the wallpaper on battery";
    EXPECT_EQ(output.calls.mid(output.calls.size() - 2),
              (QStringList{QStringLiteral("setPaused(false)"), QStringLiteral("showWindow")}));
    state->setScreenLocked(true);
    output.calls.clear();
    settings->deactivateOnBattery.write(false);
    EXPECT_FALSE(state->isEnabled());
    EXPECT_EQ(output.calls.last(), QStringLiteral("orderOut"));
}

TEST_F(AppStateTest, FrameRateTable) {
    launch();
    struct Case {
        bool battery;
        bool lowPower;
        int wanted;
        const char* line;
    };
    // The rule: at most 30 on battery, exactly 20 in power-saver mode.
    const Case cases[] = {
        {false, false, 20, "updateFps 20 false false"}, {false, false, 30, "updateFps 30 false false"},
        {false, false, 60, "updateFps 60 false false"}, {true, false, 20, "updateFps 20 true false"},
        {true, false, 30, "updateFps 30 true false"},   {true, false, 60, "updateFps 30 true false"},
        {false, true, 20, "updateFps 20 false true"},   {false, true, 30, "updateFps 20 false true"},
        {false, true, 60, "updateFps 20 false true"},   {true, true, 20, "updateFps 20 true true"},
        {true, true, 30, "updateFps 20 true true"},     {true, true, 60, "updateFps 20 true true"},
    };
    for (const Case& c : cases) {
        watcher->source = c.battery ? PowerSource::internalBattery : PowerSource::externalUnlimited;
        events.lowPower = c.lowPower;
        log.str({});
        output.calls.clear();
        state->updateFps(c.wanted);
        EXPECT_EQ(logLines(), QStringList{QString::fromLatin1(c.line)});
        const int rate = QString::fromLatin1(c.line).split(QLatin1Char(' ')).at(1).toInt();
        EXPECT_EQ(output.calls, QStringList{QStringLiteral("setFps(%1)").arg(rate)});
        EXPECT_EQ(state->framesPerSecond(), rate);
    }
}

TEST_F(AppStateTest, UnpluggingAt60Gives30AndPluggingIn60) {
    settings->fps.write(60);
    launch();
    watcher->change(PowerSource::internalBattery);
    EXPECT_EQ(logLines(), (QStringList{QStringLiteral("powerSourceDidChange"), QStringLiteral("updateFps 30 true false")}));
    EXPECT_EQ(output.calls.last(), QStringLiteral("setFps(30)"));
    watcher->change(PowerSource::externalUnlimited);
    EXPECT_EQ(output.calls.last(), QStringLiteral("setFps(60)"));
    // A UPS counts as external.
    watcher->change(PowerSource::externalUPS);
    EXPECT_EQ(output.calls.last(), QStringLiteral("setFps(60)"));
}

TEST_F(AppStateTest, BatteryLimitFollowsTheBatteryModeKey) {
    settings->fps.write(60);
    launch();
    watcher->source = PowerSource::internalBattery;
    settings->batteryMode.write(false);
    EXPECT_EQ(logLines().last(), QStringLiteral("updateFps 60 false false"));
    settings->batteryMode.write(true);
    EXPECT_EQ(logLines().last(), QStringLiteral("updateFps 30 true false"));
}

TEST_F(AppStateTest, PowerSaverGives20UnlessTheKeyIsOff) {
    settings->fps.write(60);
    launch();
    events.lowPower = true;
    emit events.powerStateDidChange();
    EXPECT_EQ(logLines(), (QStringList{QStringLiteral("powerStateDidChange"), QStringLiteral("updateFps 20 false true")}));
    settings->lowPowerMode.write(false);
    EXPECT_EQ(logLines().last(), QStringLiteral("updateFps 60 false false"));
    // The cap sets 20 outright: it even raises a lower rate written from outside.
    settings->lowPowerMode.write(true);
    settings->fps.write(10);
    EXPECT_EQ(logLines().last(), QStringLiteral("updateFps 20 false true"));
}

TEST_F(AppStateTest, FpsKeyChangeUsesTheNewValue) {
    launch();
    settings->fps.write(60);
    EXPECT_EQ(logLines(), QStringList{QStringLiteral("updateFps 60 false false")});
    EXPECT_EQ(output.calls, QStringList{QStringLiteral("setFps(60)")});
}

TEST_F(AppStateTest, MenuToggleRuleWhileLocked) {
    launch();
    const QStringList tail{QStringLiteral("Scene"), QStringLiteral("-"), QStringLiteral("Settings…"),
                           QStringLiteral("About"), QStringLiteral("Quit")};
    EXPECT_EQ(openMenu(), QStringList{QStringLiteral("Disable")} + tail);

    state->setScreenLocked(true);
    EXPECT_EQ(openMenu(), QStringList{QStringLiteral("Disable")} + tail) << "locked on mains";
    watcher->source = PowerSource::internalBattery;
    EXPECT_EQ(openMenu(), tail) << "locked on battery";
    watcher->source = PowerSource::externalUPS;
    EXPECT_EQ(openMenu(), QStringList{QStringLiteral("Disable")} + tail);
    settings->deactivateOnBattery.write(true);
    EXPECT_EQ(openMenu(), tail) << "deactivateOnBattery hides it on any source";
    watcher->source = PowerSource::externalUnlimited;
    EXPECT_EQ(openMenu(), tail);

    // Once disabled by the user the item is always there, to undo it.
    state->setScreenLocked(false);
    state->toggleManuallyDisabled();
    state->setScreenLocked(true);
    EXPECT_EQ(openMenu(), QStringList{QStringLiteral("Enable")} + tail);
}

TEST_F(AppStateTest, MenuWithoutWatcherHidesToggleWhileLocked) {
    launch(false);
    state->setScreenLocked(true);
    EXPECT_EQ(openMenu().first(), QStringLiteral("Scene"));
}

TEST_F(AppStateTest, UnansweredWatcherCountsAsNoneUntilItsFirstAnswer) {
    make();
    watcher->answered = false;
    state->finishLaunching();
    EXPECT_FALSE(logLines().contains(QStringLiteral("powerSourceDidChange")));
    state->setScreenLocked(true);
    EXPECT_EQ(openMenu().first(), QStringLiteral("Scene")) << "locked, as without a watcher";
    log.str({});
    watcher->change(PowerSource::externalUnlimited);
    EXPECT_EQ(logLines(), (QStringList{QStringLiteral("powerSourceDidChange"), QStringLiteral("updateFps 30 false false")}));
    EXPECT_EQ(openMenu().first(), QStringLiteral("Disable")) << "locked on mains";
}

TEST_F(AppStateTest, MenuItemsShortcutsAndActions) {
    launch();
    emit state->menu().aboutToShow();
    const QList<QAction*> actions = state->menu().actions();
    ASSERT_EQ(actions.size(), 6);
    EXPECT_TRUE(actions.at(0)->shortcut().isEmpty());
    EXPECT_EQ(actions.at(3)->shortcut(), QKeySequence(QStringLiteral("Ctrl+,")));
    EXPECT_TRUE(actions.at(4)->shortcut().isEmpty());
    EXPECT_EQ(actions.at(5)->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    for (QAction* action : actions) {
        EXPECT_TRUE(action->isEnabled());
        EXPECT_FALSE(action->isChecked());
    }

    QSignalSpy settingsSpy(state.get(), &AppState::settingsRequested);
    QSignalSpy aboutSpy(state.get(), &AppState::aboutRequested);
    QSignalSpy quitSpy(state.get(), &AppState::quitRequested);
    actions.at(3)->trigger();
    EXPECT_EQ(settingsSpy.count(), 0) << "the settings open on the next turn of the event loop";
    QCoreApplication::processEvents();
    EXPECT_EQ(settingsSpy.count(), 1);
    actions.at(4)->trigger();
    EXPECT_EQ(aboutSpy.count(), 1);
    actions.at(5)->trigger();
    EXPECT_EQ(quitSpy.count(), 1);

    // The next opening builds a fresh menu, not one more set of items.
    EXPECT_EQ(openMenu().size(), 6);
}

TEST_F(AppStateTest, HiddenIconIsRevealedAtLaunchThenHidden) {
    settings->hideMenuBarIcon.write(true);
    launch();
    ASSERT_TRUE(state->statusItem()->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!state->statusItem()->isVisible(), 2000);
    // A second launch asks for a reveal.
    state->temporarilyRevealStatusItem();
    EXPECT_TRUE(state->statusItem()->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!state->statusItem()->isVisible(), 2000);
}

TEST_F(AppStateTest, TurningHidingOffDuringTheRevealKeepsTheIcon) {
    settings->hideMenuBarIcon.write(true);
    launch();
    settings->hideMenuBarIcon.write(false);
    QTest::qWait(200);
    EXPECT_TRUE(state->statusItem()->isVisible());
}

TEST_F(AppStateTest, TurningHidingOnGivesAFreshPeriod) {
    launch();
    QTest::qWait(120); // the launch's own reveal has run out
    state->setRevealDuration(std::chrono::milliseconds(300));
    QElapsedTimer clock;
    clock.start();
    settings->hideMenuBarIcon.write(true);
    EXPECT_TRUE(state->statusItem()->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!state->statusItem()->isVisible(), 3000);
    EXPECT_GE(clock.elapsed(), 290);
}

TEST_F(AppStateTest, ALaterRevealDoesNotCancelAnEarlierOne) {
    settings->hideMenuBarIcon.write(true);
    launch();
    QTest::qWait(120);
    ASSERT_FALSE(state->statusItem()->isVisible());
    state->setRevealDuration(std::chrono::milliseconds(200));
    QElapsedTimer clock;
    clock.start();
    state->temporarilyRevealStatusItem();
    QTest::qWait(100);
    state->setRevealDuration(std::chrono::milliseconds(2000));
    state->temporarilyRevealStatusItem();
    // The first timer hides the icon at its own time, the second one's period notwithstanding.
    QTRY_VERIFY_WITH_TIMEOUT(!state->statusItem()->isVisible(), 1500);
    EXPECT_LT(clock.elapsed(), 1500);
}

TEST_F(AppStateTest, SceneSettingsReachSceneAndRendererOnlyOnceItExists) {
    launch();
    settings->sceneTime.write(QStringLiteral("night"));
    EXPECT_EQ(output.calls, QStringList{QStringLiteral("setSceneSettings(true,1.5)")});
    EXPECT_TRUE(logLines().isEmpty()) << "no renderer yet: nothing to log";

    output.calls.clear();
    output.appear();
    // The appear closure: frame rate, scene, clock, in that order.
    ASSERT_EQ(output.calls.size(), 8);
    EXPECT_EQ(output.calls.at(0), QStringLiteral("setFps(30)"));
    EXPECT_EQ(output.calls.at(1), QStringLiteral("setSceneSettings(true,1.5)"));
    EXPECT_EQ(output.calls.at(2), QStringLiteral("setTimeOfDay(Night)"));
    EXPECT_EQ(output.calls.at(3), QStringLiteral("setClockEnabled(false)"));
    EXPECT_EQ(logLines(), (QStringList{QStringLiteral("updateFps 30 false false"), QStringLiteral("Night")}));

    output.calls.clear();
    settings->sceneVignette.write(false);
    settings->sceneSpeed.write(2.75f);
    settings->sceneTime.write(QStringLiteral("Dusk")); // not a stored spelling: follows the clock
    EXPECT_EQ(output.calls, (QStringList{QStringLiteral("setSceneSettings(false,1.5)"),
                                         QStringLiteral("setTimeOfDay(Night)"),
                                         QStringLiteral("setSceneSettings(false,2.75)"),
                                         QStringLiteral("setTimeOfDay(Night)"),
                                         QStringLiteral("setSceneSettings(false,2.75)"),
                                         QStringLiteral("setTimeOfDay(Auto)")}));
}

TEST_F(AppStateTest, ClockSettingsGoInTheirOrder) {
    settings->clockEnabled.write(true);
    settings->clockFont.write(QStringLiteral("Oswald"));
    settings->clockFormat.write(QStringLiteral("HH:mm"));
    settings->clockOpacity.write(0.25);
    settings->clockSize.write(300.0f);
    launch();
    state->applyClockSettings();
    EXPECT_EQ(output.calls, (QStringList{QStringLiteral("setClockEnabled(true)"), QStringLiteral("setClockFont(Oswald)"),
                                         QStringLiteral("setClockTimeFormat(HH:mm)"),
                                         QStringLiteral("setClockOpacity(0.25)"), QStringLiteral("setClockSize(300)")}));
}

TEST_F(AppStateTest, WindowKeysReachTheWindow) {
    launch();
    const QUuid id = QUuid::fromString(QStringLiteral("6ba7b810-9dad-11d1-80b4-00c04fd430c8"));
    settings->display.write(id);
    EXPECT_EQ(output.calls, (QStringList{QStringLiteral("setTargetDisplay(6ba7b810-9dad-11d1-80b4-00c04fd430c8)"),
                                         QStringLiteral("updateFrame")}));
    output.calls.clear();
    settings->display.write(std::nullopt);
    EXPECT_EQ(output.calls.first(), QStringLiteral("setTargetDisplay(absent)"));

    output.calls.clear();
    settings->showOnAllSpaces.write(false);
    settings->bringBrowsingModeToFront.write(true);
    EXPECT_EQ(output.calls, (QStringList{QStringLiteral("setShowOnAllSpaces(false)"), QStringLiteral("updateLevel")}));

    output.calls.clear();
    settings->muteAudio.write(false);
    EXPECT_TRUE(output.calls.isEmpty()) << "the view is rebuilt on the next turn of the event loop";
    QCoreApplication::processEvents();
    EXPECT_EQ(output.calls, QStringList{QStringLiteral("rebuildContent")});
}

TEST_F(AppStateTest, OutsideWriteOfTheFileReachesTheState) {
    launch();
    settings::Settings other(settings->store().filePath());
    other.fps.write(60);
    QTRY_COMPARE_WITH_TIMEOUT(state->framesPerSecond(), 60, 3000);
}

} // namespace
} // namespace host::app
