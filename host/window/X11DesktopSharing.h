#pragma once

#include <QAbstractNativeEventFilter>
#include <QString>
#include <QWindow>

#include <optional>

namespace host::window {

/// Keeps the rest of the desktop usable around the wallpaper's X11 window.
///
/// Clicks: a window that is transparent to input still sits inside the frame a reparenting
/// window manager (openbox, fluxbox, xfwm4) puts around it, and that frame takes the clicks, so
/// a right click on the picture never reaches the root window and the window manager's desktop
/// menu. While the wallpaper's own input shape is empty, every frame around it gets an empty
/// input shape too, so clicks fall through to the root window.
///
/// Desktop managers: a program that draws the desktop's icons (xfdesktop, pcmanfm-qt
/// --desktop) maps a full-screen desktop window of its own and paints its background into it.
/// The wallpaper is kept directly below that window, so that the icons stay visible and usable;
/// without a compositor its background then hides the picture, which the settings window says.
///
/// Everything is driven by X events seen through Qt's connection (reparenting, shape changes of
/// the wallpaper, changes of the root's client list); nothing polls. All of it does nothing off
/// X11.
class X11DesktopSharing : public QAbstractNativeEventFilter {
public:
    /// Starts looking after `window`, the wallpaper's created X11 window.
    static void watch(WId window);

    /// The WM_CLASS name of the program whose desktop window covers the desktop (another
    /// process's window of type desktop), or nothing when there is none or not on X11.
    static std::optional<QString> desktopManager();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    explicit X11DesktopSharing(WId window);
    /// Gives every ancestor of the window below the root the window's own input shape: empty
    /// when the window lets clicks through, the default (the whole frame) otherwise.
    void shareInputShape() const;
    /// Restacks the window directly below a desktop manager's window, when there is one.
    void stayBelowDesktopManager() const;

    WId window_;
};

} // namespace host::window
