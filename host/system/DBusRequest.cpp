#include "host/system/DBusRequest.h"

#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

namespace host::system {

void requestCall(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
                 std::function<void(const QDBusMessage& reply)> done) {
    // The watcher belongs to the context, so that both go together.
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        done(watcher->reply());
    });
}

void requestProperty(const QDBusConnection& bus, const QString& service, const QString& path, const QString& interface,
                     const QString& name, QObject* context, std::function<void(const QVariant& value)> done) {
    QDBusMessage get = QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                      QStringLiteral("Get"));
    get << interface << name;
    requestCall(bus, get, context, [done = std::move(done)](const QDBusMessage& reply) {
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
            done(QVariant());
            return;
        }
        done(reply.arguments().first().value<QDBusVariant>().variant());
    });
}

} // namespace host::system
