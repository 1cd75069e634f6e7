#pragma once

#include <QString>

#include <memory>

namespace host::wayland {
class WaylandConnection;
}

namespace host::app {

/// Which way the wallpaper reaches the screen, decided once before Qt starts.
///
/// A Wayland compositor with the layer shell gets a layer surface on the program's own
/// connection (Qt may then run on Wayland or on X11). Elsewhere an X server (a plain X11
/// desktop, or XWayland beside a compositor without layer shell such as GNOME's or weston)
/// gets the X11 desktop window, and Qt is put on xcb unless the user chose a platform. With
/// neither, nothing can show a wallpaper and the program says so and ends.
class PlatformChoice {
public:
    /// The ways.
    enum class Path : int { LayerShell, X11, None };

    /// The way for what the session offers.
    static Path choose(bool layerShell, bool xServer);

    /// The one line said on standard error when there is no way, naming what was looked for.
    static QString noDesktopMessage(bool waylandDisplaySet, bool x11DisplaySet);

    /// Looks at the session (connecting to the compositor and to the X server), chooses, and
    /// for the X11 way sets QT_QPA_PLATFORM=xcb when the user set no platform. The connection
    /// of the layer-shell way is kept for the wallpaper.
    static PlatformChoice probe();

    PlatformChoice(PlatformChoice&&) noexcept;
    ~PlatformChoice();

    /// The way chosen.
    Path path() const { return path_; }
    /// The compositor connection for the layer-shell way; null otherwise.
    wayland::WaylandConnection* wayland() const { return wayland_.get(); }
    /// The line said on standard error about the way taken (or, for None, why there is none).
    QString describe() const;
    /// Why there is no way (empty unless `path` is None).
    const QString& message() const { return message_; }

private:
    PlatformChoice() = default;

    Path path_ = Path::None;
    std::unique_ptr<wayland::WaylandConnection> wayland_;
    QString message_;
};

} // namespace host::app
