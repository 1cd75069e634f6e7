#include "host/system/DBusSystemEvents.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <unistd.h>

namespace host::system {

namespace {

constexpr int kTimeoutMs = 2000;
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
    sessionPath_ = findSessionPath();
    if (!sessionPath_.isEmpty()) {
        const QString session = QStringLiteral("org.freedesktop.login1.Session");
        systemBus_.connect(kLogin, sessionPath_, session, QStringLiteral("Lock"), this, SLOT(onSessionLock()));
        systemBus_.connect(kLogin, sessionPath_, session, QStringLiteral("Unlock"), this, SLOT(onSessionUnlock()));
    }

    auto* watcher = new QDBusServiceWatcher(this);
    watcher->setConnection(systemBus_);
    for (const ProfilesService& profiles : kProfiles) {
        watcher->addWatchedService(profiles.service);
        systemBus_.connect(profiles.service, profiles.path, kProperties, QStringLiteral("PropertiesChanged"), this,
                           SLOT(onProfilesPropertiesChanged(QString, QVariantMap, QStringList)));
        readProfile(profiles.service);
    }
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this](const QString& service) {
        readProfile(service);
        updateLowPower();
    });
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this](const QString& service) {
        forgetProfile(service);
        updateLowPower();
    });
    lowPower_ = false;
    for (const QString& profile : activeProfiles_) {
        lowPower_ = lowPower_ || profile == QLatin1String("power-saver");
    }
}

QString DBusSystemEvents::findSessionPath() const {
    auto objectPath = [this](const QString& method, const QVariant& argument) -> QString {
        QDBusMessage call = QDBusMessage::createMethodCall(kLogin, kLoginPath, kLoginManager, method);
        call << argument;
        QDBusReply<QDBusObjectPath> reply = systemBus_.call(call, QDBus::Block, kTimeoutMs);
        return reply.isValid() ? reply.value().path() : QString();
    };
    // The session the desktop started us in; else the one our process belongs to; else the
    // user's graphical session (for a process started outside any session).
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (!id.isEmpty()) {
        const QString path = objectPath(QStringLiteral("GetSession"), id);
        if (!path.isEmpty()) {
            return path;
        }
    }
    const QString byPid = objectPath(QStringLiteral("GetSessionByPID"), QVariant::fromValue(uint(::getpid())));
    if (!byPid.isEmpty()) {
        return byPid;
    }
    const QString user = objectPath(QStringLiteral("GetUser"), QVariant::fromValue(uint(::getuid())));
    if (user.isEmpty()) {
        return {};
    }
    QDBusMessage get = QDBusMessage::createMethodCall(kLogin, user, kProperties, QStringLiteral("Get"));
    get << QStringLiteral("org.freedesktop.login1.User") << QStringLiteral("Display");
    QDBusMessage reply = systemBus_.call(get, QDBus::Block, kTimeoutMs);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return {};
    }
    // Display is a struct (so): session id and path.
    const QDBusArgument display = reply.arguments().first().value<QDBusVariant>().variant().value<QDBusArgument>();
    QString sessionId;
    QDBusObjectPath sessionPath;
    display.beginStructure();
    display >> sessionId >> sessionPath;
    display.endStructure();
    return sessionPath.path() == QLatin1String("/") ? QString() : sessionPath.path();
}

void DBusSystemEvents::readProfile(const QString& service) {
    for (const ProfilesService& profiles : kProfiles) {
        if (profiles.service != service) {
            continue;
        }
        QDBusMessage get = QDBusMessage::createMethodCall(service, profiles.path, kProperties, QStringLiteral("Get"));
        get << service << QStringLiteral("ActiveProfile");
        QDBusReply<QDBusVariant> reply = systemBus_.call(get, QDBus::Block, kTimeoutMs);
        if (reply.isValid()) {
            activeProfiles_.insert(service, reply.value().variant().toString());
        } else {
            activeProfiles_.remove(service);
        }
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
    } else if (invalidated.contains(name)) {
        readProfile(interface);
    } else {
        return;
    }
    updateLowPower();
}

} // namespace host::system
