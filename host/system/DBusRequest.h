#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariant>

#include <functional>

class QObject;

namespace host::system {

/// Sends `call` on `bus` without waiting: `done` runs later on `context`'s thread with the reply,
/// or with an error message when the service is missing, fails or does not answer within the
/// bus's default timeout. Nothing runs once `context` is gone. What the system bus answers must
/// never hold up the event loop: a service that is being started or hangs would freeze the
/// wallpaper and its menu meanwhile.
void requestCall(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
                 std::function<void(const QDBusMessage& reply)> done);

/// Reads a property with org.freedesktop.DBus.Properties.Get as `requestCall` does; `done` gets
/// the value, or an invalid QVariant on any failure.
void requestProperty(const QDBusConnection& bus, const QString& service, const QString& path, const QString& interface,
                     const QString& name, QObject* context, std::function<void(const QVariant& value)> done);

} // namespace host::system
