#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace host::settings {
class Settings;
}
namespace host::system {
class LaunchAtLogin;
class SystemEvents;
} // namespace host::system

namespace host::app {

class AppState;
class PlatformChoice;
class WallpaperOutput;

/// The process entry: `nivalis` runs the wallpaper, `nivalis config ...` edits the settings.
///
/// The wallpaper part first chooses how the wallpaper reaches the screen (see PlatformChoice;
/// with no way at all it says so in one line and ends with status 1, before Qt could abort),
/// then builds, in this order: the application (no taskbar entry, closing a
/// window never quits), the single-instance claim (a second launch reveals the running one's
/// tray icon and ends), the settings, the system event sources, the output, AppState, and the
/// diagnostics on the session bus; then it runs the event loop.
class Application {
public:
    /// What the desktop part supplies: the window and view that AppState drives, and the two
    /// windows the tray menu opens.
    struct Parts {
        /// Makes the desktop window and drawing view (not shown yet) for the way chosen.
        std::function<std::unique_ptr<WallpaperOutput>(settings::Settings&, system::SystemEvents&,
                                                       const PlatformChoice&)>
            makeOutput;
        /// Opens (raising) the settings window, with the menu's actions on `state`; made on first use.
        std::function<void(settings::Settings&, system::LaunchAtLogin&, AppState* state)> showSettings;
        /// Opens (raising) the About window.
        std::function<void()> showAbout;
    };

    /// Runs the program with the process's arguments; returns the exit status.
    static int run(int argc, char** argv, const Parts& parts);

    /// The program's name as users see it: "Nivalis".
    static QString displayName();
    /// The version of this build ("Unknown" when the build did not say).
    static QString version();
};

} // namespace host::app
