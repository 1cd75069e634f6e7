#include "host/ui/SettingsWindow.h"

#include "host/settings/Settings.h"
#include "host/system/LaunchAtLogin.h"
#include "host/ui/DisplayPicker.h"
#include "host/window/DisplayCatalogue.h"
#include "host/window/DisplayObservable.h"
#include "host/window/Display.h"

#include "tests/host/app/TestApplication.h"
#include "tests/host/window/FakeScreens.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace host::ui {
namespace {

class SettingsWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        screens.plug(new testing::FakePlatformScreen(QStringLiteral("LEFT"), QRect(0, 0, 1920, 1080),
                                                     QRect(0, 32, 1920, 1048), QStringLiteral("NVL"),
                                                     QStringLiteral("Polar 27"), QStringLiteral("S1")),
                     true);
        screens.plug(new testing::FakePlatformScreen(QStringLiteral("RIGHT"), QRect(1920, 0, 1280, 1024),
                                                     QRect(1920, 0, 1280, 1024)));
        settings = std::make_unique<settings::Settings>(dir.filePath(QStringLiteral("nivalis.conf")));
        launch = std::make_unique<system::LaunchAtLogin>(dir.filePath(QStringLiteral("autostart/nivalis.desktop")),
                                                         QStringLiteral("/usr/bin/nivalis"));
        window = std::make_unique<SettingsWindow>(*settings, launch.get());
    }

    template <typename T>
    T* control(const char* name) const {
        T* found = window->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    // The label of the form row that holds `field`.
    static QString labelOf(QWidget* field) {
        auto* form = qobject_cast<QFormLayout*>(field->parentWidget()->layout());
        auto* label = form != nullptr ? qobject_cast<QLabel*>(form->labelForField(field)) : nullptr;
        return label != nullptr ? label->text() : QString();
    }

    static QStringList itemsOf(QComboBox* combo) {
        QStringList items;
        for (int i = 0; i < combo->count(); ++i) {
            items << combo->itemText(i);
        }
        return items;
    }

    QTemporaryDir dir;
    testing::FakeScreens screens;
    std::unique_ptr<settings::Settings> settings;
    std::unique_ptr<system::LaunchAtLogin> launch;
    std::unique_ptr<SettingsWindow> window;
};

TEST_F(SettingsWindowTest, ThreeTabsInOrderWithTheirControls) {
    QTabWidget* tabs = window->tabs();
    ASSERT_EQ(tabs->count(), 3);
    EXPECT_EQ(tabs->tabText(0), "General");
    EXPECT_EQ(tabs->tabText(1), "Scene");
    EXPECT_EQ(tabs->tabText(2), "Clock");

    const auto names = [&](int tab) {
        QStringList found;
        for (QWidget* w : tabs->widget(tab)->findChildren<QWidget*>()) {
            if (!w->objectName().isEmpty() && (qobject_cast<QCheckBox*>(w) || qobject_cast<QComboBox*>(w) ||
                                              qobject_cast<QSlider*>(w))) {
                found << w->objectName();
            }
        }
        return found;
    };
    EXPECT_EQ(names(0), (QStringList{"launchAtLogin", "fps", "limitFpsOnBattery", "minimalFpsInLowPowerMode",
                                     "display", "showOnAllSpaces", "pauseWhenCovered", "hideMenuBarIcon"}));
    EXPECT_EQ(names(1), (QStringList{"scene", "sceneVignette", "sceneSpeed", "sceneTime", "quality"}));
    EXPECT_EQ(names(2), (QStringList{"clockEnabled", "clockFont", "clockFormat", "clockOpacity", "clockSize"}));

    EXPECT_EQ(control<QCheckBox>("launchAtLogin")->text(), "Start at login");
    EXPECT_EQ(control<QCheckBox>("limitFpsOnBattery")->text(), "Limit FPS on battery");
    EXPECT_EQ(control<QCheckBox>("minimalFpsInLowPowerMode")->text(), "Minimal FPS in power saver mode");
    EXPECT_EQ(control<QCheckBox>("showOnAllSpaces")->text(), "Show on all workspaces");
    EXPECT_EQ(control<QCheckBox>("hideMenuBarIcon")->text(), "Hide tray icon");
    EXPECT_EQ(control<QCheckBox>("sceneVignette")->text(), "Vignette");
    EXPECT_EQ(control<QCheckBox>("clockEnabled")->text(), "Enable clock");
    EXPECT_EQ(labelOf(control<QComboBox>("fps")), "Frames per second");
    EXPECT_EQ(labelOf(control<QComboBox>("display")), "Show on");
    EXPECT_EQ(labelOf(control<QSlider>("sceneSpeed")), "Movement Speed");
    EXPECT_EQ(labelOf(control<QComboBox>("sceneTime")), "Time of Day");
    EXPECT_EQ(labelOf(control<QComboBox>("clockFont")), "Font");
    EXPECT_EQ(labelOf(control<QComboBox>("clockFormat")), "Time format");
    EXPECT_EQ(labelOf(control<QSlider>("clockOpacity")), "Opacity");
    EXPECT_EQ(labelOf(control<QSlider>("clockSize")), "Size");
    EXPECT_EQ(control<QCheckBox>("sceneVignette")->toolTip(), "Photographic vignette in the corners of scene");
    EXPECT_EQ(control<QSlider>("sceneSpeed")->toolTip(), "Camera movement - larger value is slower");
    EXPECT_EQ(window->tabs()->width(), 480);
}

TEST_F(SettingsWindowTest, ControlsShowTheDefaultsOfAFreshUser) {
    EXPECT_EQ(control<QComboBox>("fps")->currentText(), "30");
    EXPECT_TRUE(control<QCheckBox>("limitFpsOnBattery")->isChecked());
    EXPECT_TRUE(control<QCheckBox>("showOnAllSpaces")->isChecked());
    EXPECT_FALSE(control<QCheckBox>("hideMenuBarIcon")->isChecked());
    EXPECT_TRUE(control<QCheckBox>("sceneVignette")->isChecked());
    EXPECT_EQ(control<QComboBox>("sceneTime")->currentText(), "Auto");
    EXPECT_FALSE(control<QCheckBox>("clockEnabled")->isChecked());
    EXPECT_EQ(control<QComboBox>("clockFont")->currentText(), "Baloo");
    EXPECT_EQ(control<QComboBox>("clockFormat")->currentText(), "12 hours short (9:27)");
    EXPECT_FALSE(control<QCheckBox>("launchAtLogin")->isChecked());
    // Showing the window wrote nothing: every key still reads its default from memory.
    EXPECT_TRUE(settings->store().names().isEmpty());
}

TEST_F(SettingsWindowTest, MovingAControlWritesItsKey) {
    QComboBox* fps = control<QComboBox>("fps");
    fps->setCurrentIndex(2);
    emit fps->activated(2);
    EXPECT_EQ(settings->fps.read(), 60);

    control<QCheckBox>("showOnAllSpaces")->click();
    EXPECT_FALSE(settings->showOnAllSpaces.read());
    control<QCheckBox>("sceneVignette")->click();
    EXPECT_FALSE(settings->sceneVignette.read());
    control<QCheckBox>("clockEnabled")->click();
    EXPECT_TRUE(settings->clockEnabled.read());

    QComboBox* time = control<QComboBox>("sceneTime");
    time->setCurrentIndex(3);
    emit time->activated(3);
    EXPECT_EQ(settings->sceneTime.read(), "dusk");

    QComboBox* font = control<QComboBox>("clockFont");
    font->setCurrentIndex(3);
    emit font->activated(3);
    EXPECT_EQ(settings->clockFont.read(), "CarbonType");
    font->setCurrentIndex(8);
    emit font->activated(8);
    EXPECT_EQ(settings->clockFont.read(), "Virgo 01");

    QComboBox* format = control<QComboBox>("clockFormat");
    format->setCurrentIndex(3);
    emit format->activated(3);
    EXPECT_EQ(settings->clockFormat.read(), "HH:mm");

    control<QSlider>("clockOpacity")->setValue(250);
    EXPECT_DOUBLE_EQ(settings->clockOpacity.read(), 0.25);
    control<QSlider>("clockSize")->setValue(3125);
    EXPECT_FLOAT_EQ(settings->clockSize.read(), 312.5f);
}

TEST_F(SettingsWindowTest, BothFrameRateSwitchesAreTheOneKeyLowPowerMode) {
    QCheckBox* battery = control<QCheckBox>("limitFpsOnBattery");
    QCheckBox* lowPower = control<QCheckBox>("minimalFpsInLowPowerMode");
    battery->click();
    EXPECT_FALSE(settings->lowPowerMode.read());
    EXPECT_FALSE(lowPower->isChecked());
    // batteryMode has no control and stays as it was.
    EXPECT_TRUE(settings->batteryMode.read());
    lowPower->click();
    EXPECT_TRUE(settings->lowPowerMode.read());
    EXPECT_TRUE(battery->isChecked());
}

TEST_F(SettingsWindowTest, ControlsFollowChangesMadeElsewhere) {
    settings->fps.write(20);
    settings->sceneTime.write(QStringLiteral("night"));
    settings->clockFormat.write(QStringLiteral("H:mm"));
    settings->clockEnabled.write(true);
    settings->sceneSpeed.write(2.25f);
    settings->clockOpacity.write(0.4);
    EXPECT_EQ(control<QComboBox>("fps")->currentText(), "20");
    EXPECT_EQ(control<QComboBox>("sceneTime")->currentText(), "Night");
    EXPECT_EQ(control<QComboBox>("clockFormat")->currentText(), "24 hours short (6:27)");
    EXPECT_TRUE(control<QCheckBox>("clockEnabled")->isChecked());
    EXPECT_EQ(control<QSlider>("sceneSpeed")->value(), 9);
    EXPECT_EQ(control<QSlider>("clockOpacity")->value(), 400);
    // A value that is none of the choices reads as the default, and is left as it is.
    settings->fps.write(45);
    EXPECT_EQ(control<QComboBox>("fps")->currentText(), "30");
    EXPECT_EQ(settings->store().entry(QStringLiteral("fps")).toString(), "45");
}

TEST_F(SettingsWindowTest, MovementSpeedMovesInQuarterSteps) {
    QSlider* speed = control<QSlider>("sceneSpeed");
    EXPECT_EQ(speed->minimum(), 2);
    EXPECT_EQ(speed->maximum(), 12);
    // The default 1.5 lies on a step.
    EXPECT_EQ(speed->value(), 6);
    speed->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_FLOAT_EQ(settings->sceneSpeed.read(), 1.75f);
    speed->setValue(speed->minimum());
    EXPECT_FLOAT_EQ(settings->sceneSpeed.read(), 0.5f);
    speed->setValue(speed->maximum());
    EXPECT_FLOAT_EQ(settings->sceneSpeed.read(), 3.0f);
    // A value off the steps written elsewhere reads as the nearest step, and stays stored.
    settings->sceneSpeed.write(1.6f);
    EXPECT_EQ(speed->value(), 6);
    EXPECT_FLOAT_EQ(settings->sceneSpeed.read(), 1.5f);
    EXPECT_EQ(settings->store().entry(QStringLiteral("sceneSpeed")).toString(), "1.6");
}

TEST_F(SettingsWindowTest, HidingTheIconShowsTheAlertAndShowingItDoesNot) {
    QCheckBox* hide = control<QCheckBox>("hideMenuBarIcon");
    hide->click();
    EXPECT_TRUE(settings->hideMenuBarIcon.read());
    ASSERT_NE(window->hideIconAlert(), nullptr);
    EXPECT_EQ(window->hideIconAlert()->text(),
              "If you need to access the app menu, launch the app again to reveal the tray icon for 5 seconds.");
    EXPECT_TRUE(window->hideIconAlert()->informativeText().isEmpty());
    window->hideIconAlert()->button(QMessageBox::Ok)->click();
    QTest::qWait(10);
    EXPECT_EQ(window->hideIconAlert(), nullptr);

    hide->click();
    EXPECT_FALSE(settings->hideMenuBarIcon.read());
    EXPECT_EQ(window->hideIconAlert(), nullptr);
}

TEST_F(SettingsWindowTest, LaunchAtLoginSwitchWritesTheAutostartEntry) {
    QCheckBox* box = control<QCheckBox>("launchAtLogin");
    box->click();
    EXPECT_TRUE(launch->isEnabled());
    EXPECT_TRUE(QFileInfo::exists(dir.filePath(QStringLiteral("autostart/nivalis.desktop"))));
    box->click();
    EXPECT_FALSE(launch->isEnabled());
    EXPECT_FALSE(box->isChecked());
}

TEST_F(SettingsWindowTest, DisplayPickerListsTheScreensAndWritesTheMainOneWhenShown) {
    QComboBox* picker = control<QComboBox>("display");
    // All displays, then the primary, labelled by its maker and model, then the others.
    ASSERT_GE(picker->count(), 3);
    EXPECT_EQ(picker->itemText(0), "All displays");
    EXPECT_EQ(picker->itemText(1), "NVL Polar 27 (LEFT)");
    EXPECT_TRUE(itemsOf(picker).contains("RIGHT"));
    EXPECT_EQ(picker->currentIndex(), -1);
    window->show();
    QTest::qWait(20);
    const auto main = window::Display::main();
    ASSERT_TRUE(main.has_value());
    EXPECT_EQ(settings->display.read(), main->id);
    EXPECT_EQ(picker->currentIndex(), 1);
    window->hide();

    // All displays turns the key on and keeps the chosen monitor; a monitor turns it off again.
    emit picker->activated(0);
    EXPECT_TRUE(settings->allDisplays.read());
    EXPECT_EQ(picker->currentIndex(), 0);
    EXPECT_EQ(settings->display.read(), main->id);
    const int other = picker->findText(QStringLiteral("RIGHT"));
    picker->setCurrentIndex(other);
    emit picker->activated(other);
    EXPECT_FALSE(settings->allDisplays.read());
    EXPECT_EQ(settings->display.read(), window::Display::fromIdentity("", "", "", "RIGHT")->id);
}

TEST_F(SettingsWindowTest, DisplayPickerListsTheMonitorsOfAnInstalledSourceAndFollowsThem) {
    // The Wayland output's own monitors, which Qt's screens may not match.
    std::vector<window::DisplayCatalogue::Entry> monitors = {
        {window::Display::fromIdentity("headless", "headless", "", "HEADLESS-1"),
         window::DisplayCatalogue::label("headless", "headless", "HEADLESS-1")},
        {window::Display::fromIdentity("", "", "", "DP-2"), window::DisplayCatalogue::label("", "", "DP-2")},
    };
    window::DisplayCatalogue::setSource([&monitors] { return monitors; });
    DisplayPicker picker(*settings);
    EXPECT_EQ(itemsOf(&picker), QStringList({"All displays", "headless headless (HEADLESS-1)", "DP-2"}));
    settings->display.write(monitors[1].display->id);
    EXPECT_EQ(picker.currentIndex(), 2);

    // DP-2 unplugged: the first monitor is shown, the key is kept for its return.
    monitors.pop_back();
    window::DisplayObservable::instance().notifyScreensChanged();
    EXPECT_EQ(itemsOf(&picker), QStringList({"All displays", "headless headless (HEADLESS-1)"}));
    EXPECT_EQ(picker.currentIndex(), 1);
    EXPECT_EQ(settings->display.read(), window::Display::fromIdentity("", "", "", "DP-2")->id);
    window::DisplayCatalogue::setSource(nullptr);
}

TEST_F(SettingsWindowTest, EveryTabDrawsItsControls) {
    // With NIVALIS_SCREENSHOT_DIR set, the pictures are kept there for a look.
    const QString keep = qEnvironmentVariable("NIVALIS_SCREENSHOT_DIR");
    window->show();
    for (int i = 0; i < window->tabs()->count(); ++i) {
        window->tabs()->setCurrentIndex(i);
        const QImage picture = window->grab().toImage();
        ASSERT_FALSE(picture.isNull());
        EXPECT_EQ(picture.width(), 480);
        QSet<QRgb> colours;
        for (int y = 0; y < picture.height(); y += 3) {
            for (int x = 0; x < picture.width(); x += 3) {
                colours.insert(picture.pixel(x, y));
            }
        }
        EXPECT_GT(colours.size(), 8) << "tab " << i << " looks empty";
        if (!keep.isEmpty()) {
            QDir().mkpath(keep);
            picture.save(QDir(keep).filePath(QStringLiteral("settings-%1.png").arg(window->tabs()->tabText(i))));
        }
    }
    window->hide();
}

TEST(DisplayPickerRuleTest, ShownValueFollowsTheStoredDisplayWhileItIsConnected) {
    const window::Display main(QUuid::createUuid());
    const window::Display other(QUuid::createUuid());
    const window::Display unplugged(QUuid::createUuid());
    const std::vector<std::optional<window::Display>> connected{main, other, std::nullopt};
    EXPECT_EQ(DisplayPicker::shownDisplay(std::nullopt, connected, main), std::nullopt);
    EXPECT_EQ(DisplayPicker::shownDisplay(other, connected, main), other);
    EXPECT_EQ(DisplayPicker::shownDisplay(main, connected, main), main);
    // The stored display is away: the main one is shown.
    EXPECT_EQ(DisplayPicker::shownDisplay(unplugged, connected, main), main);
}

TEST_F(SettingsWindowTest, UnpluggedStoredDisplayShowsTheMainOneAndKeepsTheKey) {
    const QUuid away = QUuid::createUuid();
    settings->display.write(away);
    auto* picker = window->findChild<DisplayPicker*>(QStringLiteral("display"));
    ASSERT_NE(picker, nullptr);
    EXPECT_EQ(picker->currentIndex(), 1);
    EXPECT_EQ(picker->currentData().toString(), window::Display::main()->uuidText());
    EXPECT_EQ(settings->display.read(), away);
}

} // namespace
} // namespace host::ui
