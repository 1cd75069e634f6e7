#include "host/app/PlatformChoice.h"

#include "host/wayland/WaylandConnection.h"

#include <xcb/xcb.h>

#include <cstdlib>

namespace host::app {

namespace {

bool isSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

bool xServerAnswers() {
    if (!isSet("DISPLAY")) {
        return false;
    }
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

} // namespace

PlatformChoice::PlatformChoice(PlatformChoice&&) noexcept = default;
PlatformChoice::~PlatformChoice() = default;

PlatformChoice::Path PlatformChoice::choose(bool layerShell, bool xServer) {
    if (layerShell) {
        return Path::LayerShell;
    }
    return xServer ? Path::X11 : Path::None;
}

QString PlatformChoice::noDesktopMessage(bool waylandDisplaySet, bool x11DisplaySet) {
    QString found;
    if (waylandDisplaySet && x11DisplaySet) {
        found = QStringLiteral("the Wayland compositor offers no layer shell and the X server ($DISPLAY) does not "
                               "answer");
    } else if (waylandDisplaySet) {
        found = QStringLiteral("the Wayland compositor offers no layer shell and there is no X server ($DISPLAY "
                               "is unset)");
    } else if (x11DisplaySet) {
        found = QStringLiteral("the X server ($DISPLAY) does not answer and there is no Wayland compositor");
    } else {
        found = QStringLiteral("there is no graphical session ($WAYLAND_DISPLAY and $DISPLAY are unset)");
    }
    return QStringLiteral("nivalis: cannot show a wallpaper here: ") + found + QLatin1Char('.');
}

QString PlatformChoice::describe() const {
    switch (path_) {
    case Path::LayerShell:
        return QStringLiteral("nivalis: showing the wallpaper as a layer surface of the Wayland compositor");
    case Path::X11:
        return QStringLiteral("nivalis: showing the wallpaper as an X11 desktop window on ") +
               QString::fromLocal8Bit(std::getenv("DISPLAY"));
    case Path::None:
        break;
    }
    return message_;
}

PlatformChoice PlatformChoice::probe() {
    PlatformChoice result;
    const bool waylandSet = isSet("WAYLAND_DISPLAY") || isSet("WAYLAND_SOCKET");
    if (waylandSet) {
        result.wayland_ = wayland::WaylandConnection::connect();
        if (result.wayland_ != nullptr && !result.wayland_->hasLayerShell()) {
            result.wayland_.reset();
        }
    }
    const bool layerShell = result.wayland_ != nullptr;
    result.path_ = choose(layerShell, !layerShell && xServerAnswers());
    if (result.path_ == Path::X11 && !isSet("QT_QPA_PLATFORM")) {
        // The desktop window speaks X11 to the window manager: Qt must be on xcb for that,
        // also where a Wayland compositor would otherwise draw Qt's own windows.
        setenv("QT_QPA_PLATFORM", "xcb", 1);
    }
    if (result.path_ == Path::LayerShell && !isSet("QT_QPA_PLATFORM")) {
        // The wallpaper needs nothing of Qt's platform; its windows (settings, About) go to the
        // compositor natively when Qt's Wayland plugin is there, through XWayland otherwise,
        // and nowhere rather than ending the program when neither can be had.
        setenv("QT_QPA_PLATFORM", "wayland;xcb;offscreen", 1);
    }
    if (result.path_ == Path::None) {
        result.message_ = noDesktopMessage(waylandSet, isSet("DISPLAY"));
    }
    return result;
}

} // namespace host::app
