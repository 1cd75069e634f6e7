#pragma once

#include "host/system/SystemEvents.h"

#include <QDBusConnection>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>

namespace host::system {

/// System events from D-Bus.
///
/// - Lock and unlock: `ActiveChanged` of org.freedesktop.ScreenSaver and of org.gnome.ScreenSaver
///   on the session bus, and `Lock` / `Unlock` of this login session from logind on the system
///   bus. Every event is passed on as it comes.
/// - Wake: logind's `PrepareForSleep(false)`.
/// - Power-saving mode: power-profiles-daemon's `ActiveProfile` being "power-saver", under its
///   names net.hadess.PowerProfiles and org.freedesktop.UPower.PowerProfiles, whichever are
///   present; `powerStateDidChange` when the merged state turns.
///
/// Nothing here waits on the system bus: the login session and the profiles are asked for in
/// the background, the session's Lock and Unlock are followed once it is found, and the
/// profiles' first answers count as changes. A bus or service that is not there gives no
/// events, and says nothing.
class DBusSystemEvents : public SystemEvents {
    Q_OBJECT
public:
    explicit DBusSystemEvents(QDBusConnection sessionBus = QDBusConnection::sessionBus(),
                              QDBusConnection systemBus = QDBusConnection::systemBus(), QObject* parent = nullptr);

    bool isLowPowerModeEnabled() const override { return lowPower_; }

    /// The logind session whose Lock and Unlock are followed; empty until it is found, or when
    /// none is.
    const QString& sessionPath() const { return sessionPath_; }

private slots:
    void onScreenSaverActiveChanged(bool active);
    void onSessionLock();
    void onSessionUnlock();
    void onPrepareForSleep(bool start);
    void onProfilesPropertiesChanged(const QString& interface, const QVariantMap& changed,
                                     const QStringList& invalidated);

private:
    /// Looks for this login session: the desktop's XDG_SESSION_ID, else the session of this
    /// process, else the user's graphical session; follows the first found.
    void findSession();
    /// Asks logind's manager `method` with `argument`; `done` gets the object path, empty on failure.
    void askLogin(const QString& method, const QVariant& argument, std::function<void(const QString&)> done);
    /// Looks up the graphical session of the logind user at `userPath`.
    void findDisplaySession(const QString& userPath);
    /// Follows the Lock and Unlock of the session at `path`.
    void followSession(const QString& path);
    /// Asks `service` for its active profile; the answer updates the power-saving mode.
    void readProfile(const QString& service);
    void forgetProfile(const QString& service);
    void updateLowPower();

    QDBusConnection sessionBus_;
    QDBusConnection systemBus_;
    QString sessionPath_;
    QHash<QString, QString> activeProfiles_;
    bool lowPower_ = false;
};

} // namespace host::system
