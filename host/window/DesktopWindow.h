#pragma once

#include "host/settings/Subscription.h"
#include "host/window/DesktopFrame.h"
#include "host/window/Display.h"

#include <QWindow>

#include <optional>
#include <vector>

class QScreen;

namespace host::settings {
class Settings;
}

namespace host::window {

/// The borderless window at the desktop level of one monitor, holding the drawing view.
///
/// On X11 it is a window of type desktop, kept below all others, skipped by taskbar and pager,
/// on every workspace while `showOnAllSpaces` holds, and transparent to the mouse; these hints
/// are written before each mapping, when the window manager reads them. Its frame is the
/// chosen monitor's, below the top panel (see DesktopFrame); when that monitor is gone it goes
/// to the primary one, and it comes back when the monitor does. Every change of the screens,
/// every wake and every change of `extendVeilBelowMenuBar` re-applies the frame.
class DesktopWindow : public QWindow {
    Q_OBJECT
public:
    /// Makes the native window, unmapped, on `targetDisplay` (the primary screen when absent),
    /// and starts following the screens and the key `extendVeilBelowMenuBar`.
    DesktopWindow(settings::Settings& settings, std::optional<Display> targetDisplay);
    ~DesktopWindow() override;

    /// The monitor that the window belongs to; absent means the primary.
    const std::optional<Display>& targetDisplay() const { return targetDisplay_; }
    /// Sets the monitor; `updateFrame` moves the window there.
    void setTargetDisplay(std::optional<Display> display) { targetDisplay_ = std::move(display); }

    /// Whether the window takes the mouse and the focus; false, as a wallpaper is.
    bool isInteractive() const { return interactive_; }
    /// Changes the interactivity, which re-applies the level.
    void setInteractive(bool interactive);

    /// Whether the window is on all workspaces.
    bool showsOnAllSpaces() const { return allSpaces_; }
    /// Puts the window on all workspaces or only on the current one; a mapped window moves at once.
    void setShowOnAllSpaces(bool all);

    /// Places the window by the frame rule on the target monitor, or on the primary when the
    /// target is not connected. Without any screen it stays as it was.
    void updateFrame();
    /// Re-applies level and mouse handling for the present interactivity.
    void updateLevel();

    /// Maps the window (hints written first) and puts it at the back.
    void orderFront();
    /// Unmaps the window.
    void orderOut();

    /// The screens in the order the rules count them: the primary first, then the others as
    /// the application lists them.
    static std::vector<QScreen*> orderedScreens();
    /// The first of `screens` whose display is `display`; null when none is.
    static QScreen* screenOf(const std::vector<QScreen*>& screens, const std::optional<Display>& display);
    /// The screen that the frame rule places the window on now; null without screens.
    QScreen* targetScreen() const;

signals:
    /// The frame was applied (tests and diagnostics wait for it).
    void frameUpdated(const QRect& frame);

private:
    void applyFlags();
    void writeHintsBeforeMap();

    settings::Settings& settings_;
    std::optional<Display> targetDisplay_;
    bool interactive_ = false;
    bool allSpaces_ = true;
    std::vector<settings::Subscription> cancellables_;
};

} // namespace host::window
