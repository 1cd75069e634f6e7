#pragma once

#include "host/settings/Subscription.h"

#include <QWidget>

#include <vector>

class QCheckBox;
class QFormLayout;
class QLabel;
class QMessageBox;
class QTabWidget;

namespace host::settings {
class Settings;
}
namespace host::system {
class LaunchAtLogin;
}
namespace host::app {
class AppState;
}

namespace host::ui {

/// The settings window: three tabs (General, Scene, Clock) of controls, each bound straight to
/// its settings key. The window holds no model and applies nothing itself: a control writes its
/// key and the key's subscribers do the rest. It floats above other windows and takes the size
/// of its content, 480 pixels wide.
///
/// Every control has the object name of its key (the two frame-rate switches, both on
/// `lowPowerMode`, are "limitFpsOnBattery" and "minimalFpsInLowPowerMode"; the launch switch is
/// "launchAtLogin"), so that tests and accessibility tools find them.
class SettingsWindow : public QWidget {
    Q_OBJECT
public:
    /// The text of the alert shown when the tray icon is set to hide.
    static constexpr const char* kHideIconAlert =
        "If you need to access the app menu, launch the app again to reveal the tray icon for 5 seconds.";

    /// A window over `settings`; `launchAtLogin` backs the "Start at login" switch (disabled
    /// when null). Both must outlive the window.
    SettingsWindow(settings::Settings& settings, system::LaunchAtLogin* launchAtLogin, QWidget* parent = nullptr);
    ~SettingsWindow() override;

    /// Opens the process's settings window, making it on first use, and brings it to the front.
    /// With `state`, the window ends in the tray menu's actions (Enable/Disable, About, Quit).
    static void showShared(settings::Settings& settings, system::LaunchAtLogin& launchAtLogin,
                           app::AppState* state = nullptr);

    /// The notice shown in the General tab while `manager` (a desktop manager's program name)
    /// keeps its own desktop window over the wallpaper.
    static QString desktopManagerNotice(const QString& manager);

    /// The tabs.
    QTabWidget* tabs() const { return tabs_; }
    /// The alert about the hidden icon while it is up; null otherwise.
    QMessageBox* hideIconAlert() const { return alert_; }

private:
    QWidget* makeGeneral();
    QWidget* makeScene();
    QWidget* makeClock();
    QCheckBox* toggle(QFormLayout* form, const QString& text, const QString& name);
    void showHideIconAlert();
    void fitTab(int index);

    settings::Settings& settings_;
    system::LaunchAtLogin* launchAtLogin_;
    QTabWidget* tabs_ = nullptr;
    QMessageBox* alert_ = nullptr;
    /// Why the settings file could not be read or saved, under the tabs while it is so.
    QLabel* fileProblem_ = nullptr;
    std::vector<settings::Subscription> bindings_;
};

} // namespace host::ui
