#pragma once

#include "host/menu/AppMenu.h"
#include "host/settings/Subscription.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <iosfwd>
#include <memory>
#include <optional>
#include <vector>

namespace host::settings {
class Settings;
}
namespace host::system {
class PowerSourceWatcher;
class SystemEvents;
} // namespace host::system
namespace host::menu {
class StatusItem;
}

namespace host::app {

class WallpaperOutput;

/// The host's central object, one per process: the only place that decides whether the
/// wallpaper runs and at which rate.
///
/// Every change of state arrives through one subscription made by `setUpEvents` (settings keys,
/// screen lock, power events, the menu's Enable/Disable) and leaves through one of four
/// operations: `updateFps`, `applySceneSettings`, `applyClockSettings`, `applyEnabledState`;
/// the key `quality` alone goes straight to the output, as every monitor's renderer takes it at
/// its next frame.
///
/// Invariant: `isEnabled` is true exactly when neither `isManuallyDisabled` nor `isScreenLocked`
/// is. Neither of those is persisted: every launch starts enabled.
///
/// Log lines on standard output (or the stream given): "powerSourceDidChange",
/// "powerStateDidChange", "deviceDidWake", "updateFps <rate> <onBattery> <lowPower>", and the
/// time of day applied to the renderer.
class AppState : public QObject {
    Q_OBJECT
public:
    /// Everything AppState is built on. The references must outlive it; `powerSourceWatcher` is
    /// null where the system has no power-source service, and counts as none until it has answered.
    struct Services {
        settings::Settings& settings;
        WallpaperOutput& output;
        system::SystemEvents& events;
        std::unique_ptr<system::PowerSourceWatcher> powerSourceWatcher;
        std::ostream& log;
    };

    /// Builds the state (enabled, not locked, not manually disabled), connects the view's
    /// appearing to updateFps/applySceneSettings/applyClockSettings, and queues
    /// `finishLaunching` on the event loop. Touches neither the window nor the tray icon.
    explicit AppState(Services services, QObject* parent = nullptr);
    ~AppState() override;

    /// Creates the tray icon and the window, then runs `setUpEvents`. Runs once; later calls do
    /// nothing (the queued call then finds it done).
    void finishLaunching();

    /// The frame-rate rule: `fps` (or the key `fps` when absent), capped at 30 on battery when
    /// `batteryMode` is on, set to 20 in power-saver mode when `lowPowerMode` is on.
    void updateFps(std::optional<int> fps = std::nullopt);
    /// The scene shown: the key `scene`, where an unknown value reads as "nivalis".
    QString scene() const;
    /// Carries `sceneVignette`, `sceneSpeed` and `sceneTime` to the scene and its renderer (the
    /// time of day reaches Nivalis alone; a scene without a setting ignores it).
    void applySceneSettings();
    /// Carries the clock keys to the clock overlay: enabled, font, format, opacity, size.
    void applyClockSettings();
    /// Shows and runs, or pauses and hides, the wallpaper according to `isEnabled`.
    void applyEnabledState();
    /// Shows the tray icon now and hides it 5 seconds later if `hideMenuBarIcon` is then on.
    /// Each call has its own timer; a later call does not cancel an earlier one.
    void temporarilyRevealStatusItem();
    /// The title of the Enable/Disable action ("Enable" while manually disabled, "Disable"
    /// otherwise), or nothing while the rule hides it: off by the lock alone, and on battery, or
    /// `deactivateOnBattery` on, or no power-source watcher.
    std::optional<QString> toggleTitle() const;
    /// Fills the menu: Enable/Disable (when its rule allows), the "Scene" submenu (the four
    /// scenes, the shown one checked; choosing one writes the key `scene`), a separator,
    /// "Settings…", "About", "Quit".
    void rebuildMenu();

    /// A lock (true) or unlock (false) of the screen.
    void setScreenLocked(bool locked);
    /// The menu's Enable/Disable: flips `isManuallyDisabled` and applies the result.
    void toggleManuallyDisabled();

    /// The wallpaper runs (window shown, view not paused).
    bool isEnabled() const { return isEnabled_; }
    /// The last lock state that arrived.
    bool isScreenLocked() const { return isScreenLocked_; }
    /// The user chose Disable in the menu.
    bool isManuallyDisabled() const { return isManuallyDisabled_; }
    /// Whether the view was last told to pause (diagnostics).
    bool isPaused() const { return isPaused_; }
    /// The rate last given to the view.
    int framesPerSecond() const { return framesPerSecond_; }

    /// The tray menu.
    menu::AppMenu& menu() { return *menu_; }
    /// The tray icon; null until `finishLaunching`.
    menu::StatusItem* statusItem() const { return statusItem_.get(); }
    /// The power-source watcher; null where there is none.
    system::PowerSourceWatcher* powerSourceWatcher() const { return powerSourceWatcher_.get(); }

    /// How long a reveal of the tray icon lasts (5 seconds; shorter in tests).
    void setRevealDuration(std::chrono::milliseconds duration) { revealDuration_ = duration; }

signals:
    /// The menu's "Settings…" was chosen: open the settings window.
    void settingsRequested();
    /// The menu's "About" was chosen: show the About window.
    void aboutRequested();
    /// The menu's "Quit" was chosen: end the process.
    void quitRequested();
    /// `isEnabled` or the frame rate changed (for the diagnostics interface).
    void stateChanged();

private:
    void setUpEvents();
    void addSceneMenu();
    menu::StatusItem& ensureStatusItem();
    void logLine(const char* text);

    settings::Settings& settings_;
    WallpaperOutput& output_;
    system::SystemEvents& events_;
    std::ostream& log_;

    std::vector<settings::Subscription> cancellables_;
    std::unique_ptr<menu::AppMenu> menu_;
    std::unique_ptr<system::PowerSourceWatcher> powerSourceWatcher_;
    std::unique_ptr<menu::StatusItem> statusItem_;
    bool windowCreated_ = false;
    bool launched_ = false;
    bool isEnabled_ = true;
    bool isScreenLocked_ = false;
    bool isManuallyDisabled_ = false;
    bool isPaused_ = false;
    int framesPerSecond_ = 0;
    std::chrono::milliseconds revealDuration_{5000};
};

} // namespace host::app
