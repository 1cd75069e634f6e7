#pragma once

#include <QString>
#include <QStringList>
#include <QWindow>

#include <cstdint>
#include <optional>

namespace host::window {

/// The X11 side of a desktop-level window, spoken to the window manager through EWMH
/// properties and messages over xcb. Every operation does nothing when the application does
/// not run on X11 (offscreen tests, a Wayland session without XWayland).
class X11Desktop {
public:
    /// Whether the application talks to an X server.
    static bool available();

    /// Writes the hints that a window manager reads when it maps a window: type desktop;
    /// state below, skipped by taskbar and pager, sticky when `allWorkspaces`; and the
    /// workspace (all of them, or the current one). The window must exist and be unmapped.
    static void applyBeforeMap(WId window, bool allWorkspaces);

    /// Writes the hints of an interactive window instead: type normal, above the others when
    /// `inFront`, not skipped by taskbar or pager.
    static void applyInteractiveBeforeMap(WId window, bool inFront, bool allWorkspaces);

    /// Asks the window manager to put a mapped window on all workspaces or on the current one.
    static void moveToWorkspaces(WId window, bool allWorkspaces);

    /// The number of the current workspace, from the root window (0 when unknown).
    static std::uint32_t currentWorkspace();

    /// The names of the atoms in the window's property `property` (for checks and tests).
    static QStringList atomsOf(WId window, const char* property);

    /// The 32-bit cardinal in the window's property `property`, if there is one.
    static std::optional<std::uint32_t> cardinalOf(WId window, const char* property);
};

} // namespace host::window
