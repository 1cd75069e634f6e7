#pragma once

#include <QObject>
#include <QUuid>

namespace host::app {

/// Tells which monitors are hidden behind a window: a fullscreen window, or a maximized one on
/// the current workspace. It learns it from the window system's events as they come (no
/// polling) and announces each change.
///
/// One implementation per window system (EWMH on X11, the foreign-toplevel protocol on
/// Wayland compositors that offer it); where the window system tells nothing, there is none.
class CoverWatcher : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~CoverWatcher() override = default;

    /// Whether a window hides the whole of the monitor `display` (its Display UUID) now.
    virtual bool isCovered(const QUuid& display) const = 0;

    /// Whether this process watches covering windows at all (the settings window says so when
    /// it does not); set where the watcher is made.
    static bool isOffered();
    /// Records whether a watcher is at work.
    static void setOffered(bool offered);

signals:
    /// The set of covered monitors may have changed.
    void coveredChanged();
};

} // namespace host::app
