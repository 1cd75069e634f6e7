#include "host/system/DBusSystemEvents.h"

#include "host/system/DBusRequest.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <unistd.h>

namespace host::system {

namespace {

const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kLogin = QStringLiteral("org.freedesktop.login1");
const QString kLoginPath = QStringLiteral("/org/freedesktop/login1");
const QString kLoginManager = QStringLiteral("org.freedesktop.login1.Manager");

/// power-profiles-daemon answers under two names; each has its own path and interface name.
struct ProfilesService {
    QString service;
    QString path;
};
const ProfilesService kProfiles[] = {
    {QStringLiteral("net.hadess.PowerProfiles"), QStringLiteral("/net/hadess/PowerProfiles")},
    {QStringLiteral("org.freedesktop.UPower.PowerProfiles"), QStringLiteral("/org/freedesktop/UPower/PowerProfiles")},
};

} // namespace

DBusSystemEvents::DBusSystemEvents(QDBusConnection sessionBus, QDBusConnection systemBus, QObject* parent)
    : SystemEvents(parent), sessionBus_(std::move(sessionBus)), systemBus_(std::move(systemBus)) {
    if (sessionBus_.isConnected()) {
        // Any sender and any path: KDE announces on two paths, GNOME under its own name.
        for (const QString& interface :
             {QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("org.gnome.ScreenSaver")}) {
            sessionBus_.connect(QString(), QString(), interface, QStringLiteral("ActiveChanged"), this,
                                SLOT(onScreenSaverActiveChanged(bool)));
        }
    }
    if (!systemBus_.isConnected()) {
        return;
    }
    systemBus_.connect(kLogin, kLoginPath, kLoginManager, QStringLiteral("PrepareForSleep"), this,
                       SLOT(onPrepareForSleep(bool)));
    findSession();

    auto* watcher = new QDBusServiceWatcher(this);
    watcher->setConnection(systemBus_);
    for (const ProfilesService& profiles : kProfiles) {
        watcher->addWatchedService(profiles.service);
        systemBus_.connect(profiles.service, profiles.path, kProperties, QStringLiteral("PropertiesChanged"), this,
                           SLOT(onProfilesPropertiesChanged(QString, QVariantMap, QStringList)));
        readProfile(profiles.service);
    }
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &DBusSystemEvents::readProfile);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this](const QString& service) {
        forgetProfile(service);
        updateLowPower();
    });
}

void DBusSystemEvents::findSession() {
    // The session the desktop started us in; else the one our process belongs to; else the
    // user's graphical session (for a process started outside any session). Each lookup is
    // asked only once the one before has failed.
    auto byUser = [this] {
        askLogin(QStringLiteral("GetUser"), QVariant::fromValue(uint(::getuid())), [this](const QString& user) {
            if (!user.isEmpty()) {
                findDisplaySession(user);
            }
        });
    };
    auto byPid = [this, byUser] {
        askLogin(QStringLiteral("GetSessionByPID"), QVariant::fromValue(uint(::getpid())),
                 [this, byUser](const QString& path) { path.isEmpty() ? byUser() : followSession(path); });
    };
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (id.isEmpty()) {
        byPid();
        return;
    }
    askLogin(QStringLiteral("GetSession"), id,
             [this, byPid](const QString& path) { path.isEmpty() ? byPid() : followSession(path); });
}

void DBusSystemEvents::askLogin(const QString& method, const QVariant& argument,
                                std::function<void(const QString&)> done) {
    QDBusMessage call = QDBusMessage::createMethodCall(kLogin, kLoginPath, kLoginManager, method);
    call << argument;
    requestCall(systemBus_, call, this, [done = std::move(done)](const QDBusMessage& reply) {
        const bool found = reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
        done(found ? reply.arguments().first().value<QDBusObjectPath>().path() : QString());
    });
}

void DBusSystemEvents::findDisplaySession(const QString& userPath) {
    requestProperty(systemBus_, kLogin, userPath, QStringLiteral("org.freedesktop.login1.User"),
                    QStringLiteral("Display"), this, [this](const QVariant& value) {
                        if (value.userType() != qMetaTypeId<QDBusArgument>()) {
                            return;
                        }
                        // Display is a struct (so): session id and path; "/" when there is none.
                        const QDBusArgument display = value.value<QDBusArgument>();
                        QString sessionId;
                        QDBusObjectPath sessionPath;
                        display.beginStructure();
                        display >> sessionId >> sessionPath;
                        display.endStructure();
                        if (sessionPath.path() != QLatin1String("/")) {
                            followSession(sessionPath.path());
                        }
                    });
}

void DBusSystemEvents::followSession(const QString& path) {
    sessionPath_ = path;
    const QString session = QStringLiteral("org.freedesktop.login1.Session");
    systemBus_.connect(kLogin, sessionPath_, session, QStringLiteral("Lock"), this, SLOT(onSessionLock()));
    systemBus_.connect(kLogin, sessionPath_, session, QStringLiteral("Unlock"), this, SLOT(onSessionUnlock()));
}

void DBusSystemEvents::readProfile(const QString& service) {
    for (const ProfilesService& profiles : kProfiles) {
        if (profiles.service != service) {
            continue;
        }
        requestProperty(systemBus_, service, profiles.path, service, QStringLiteral("ActiveProfile"), this,
                        [this, service](const QVariant& profile) {
                            if (profile.isValid()) {
                                activeProfiles_.insert(service, profile.toString());
                            } else {
                                activeProfiles_.remove(service);
                            }
                            updateLowPower();
                        });
    }
}

void DBusSystemEvents::forgetProfile(const QString& service) {
    activeProfiles_.remove(service);
}

void DBusSystemEvents::updateLowPower() {
    bool lowPower = false;
    for (const QString& profile : activeProfiles_) {
        lowPower = lowPower || profile == QLatin1String("power-saver");
    }
    if (lowPower != lowPower_) {
        lowPower_ = lowPower;
        emit powerStateDidChange();
    }
}

void DBusSystemEvents::onScreenSaverActiveChanged(bool active) {
    emit screenIsLocked(active);
}

void DBusSystemEvents::onSessionLock() {
    emit screenIsLocked(true);
}

void DBusSystemEvents::onSessionUnlock() {
    emit screenIsLocked(false);
}

void DBusSystemEvents::onPrepareForSleep(bool start) {
    if (!start) {
        emit deviceDidWake();
    }
}

void DBusSystemEvents::onProfilesPropertiesChanged(const QString& interface, const QVariantMap& changed,
                                                   const QStringList& invalidated) {
    const QString name = QStringLiteral("ActiveProfile");
    if (changed.contains(name)) {
        activeProfiles_.insert(interface, changed.value(name).toString());
        updateLowPower();
    } else if (invalidated.contains(name)) {
        readProfile(interface);
    }
}

} // namespace host::system
