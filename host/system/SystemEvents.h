#pragma once

#include <QObject>

namespace host::system {

/// Session-wide events the wallpaper reacts to: screen lock, wake from sleep, and the
/// power-saving mode.
///
/// Each signal is the merge of every source the implementation listens to: a lock reported by
/// two services arrives twice, which is harmless since receivers store the value.
class SystemEvents : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~SystemEvents() override = default;

    /// Whether the system's power-saving mode ("power-saver" profile) is on.
    virtual bool isLowPowerModeEnabled() const = 0;

signals:
    /// The screen was locked (true) or unlocked (false).
    void screenIsLocked(bool locked);
    /// The machine woke from sleep.
    void deviceDidWake();
    /// The power-saving mode may have changed.
    void powerStateDidChange();
};

} // namespace host::system
