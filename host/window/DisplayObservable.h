#pragma once

#include <QObject>

class QScreen;

namespace host::window {

/// Announces every change of the screen set or of a screen's geometry, and every wake from
/// sleep, so that whoever places windows or lists screens can do it again.
class DisplayObservable : public QObject {
    Q_OBJECT
public:
    /// The process-wide instance; it follows the application's screens from its first use.
    static DisplayObservable& instance();

    /// Reports a wake from sleep (the system watcher calls this); it counts as a screen change.
    void notifyWake();
    /// Reports a change of monitors that Qt does not see (the Wayland output's own connection).
    void notifyScreensChanged();

signals:
    /// A screen came, went, or moved, or the machine woke up.
    void screenDidChange();

private:
    DisplayObservable();
    void watch(QScreen* screen);
};

} // namespace host::window
