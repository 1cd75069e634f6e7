#pragma once

#include <functional>

class QWidget;

namespace host::ui {

/// The tray menu's keyboard shortcuts, also in the program's own windows (Settings, About), as
/// a Linux desktop user expects them: Ctrl+Q quits, Ctrl+, opens Settings, and Esc or Ctrl+W
/// closes the window.
class WindowKeys {
public:
    /// Gives `window` the shortcuts; they act while it has the keyboard focus.
    static void install(QWidget* window);

    /// What Ctrl+, runs: the application's own way to open Settings, set once at start. Until it
    /// is set, Ctrl+, does nothing.
    static void setOpenSettings(std::function<void()> open);
};

} // namespace host::ui
