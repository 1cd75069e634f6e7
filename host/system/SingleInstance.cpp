#include "host/system/SingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace host::system {

SingleInstance::SingleInstance(QDBusConnection bus, QObject* parent) : QObject(parent), bus_(std::move(bus)) {}

SingleInstance::Role SingleInstance::claim() {
    if (!bus_.isConnected() || bus_.interface() == nullptr) {
        return Role::Alone;
    }
    // The object goes up before the name, so that a launch that sees the name can call at once.
    bus_.registerObject(QString::fromLatin1(objectPath), this, QDBusConnection::ExportScriptableSlots);
    const auto reply = bus_.interface()->registerService(QString::fromLatin1(serviceName),
                                                         QDBusConnectionInterface::DontQueueService,
                                                         QDBusConnectionInterface::DontAllowReplacement);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered) {
        return Role::Primary;
    }
    bus_.unregisterObject(QString::fromLatin1(objectPath));
    return reply.isValid() ? Role::Secondary : Role::Alone;
}

bool SingleInstance::askRunningInstanceToReveal() {
    QDBusMessage call = QDBusMessage::createMethodCall(QString::fromLatin1(serviceName), QString::fromLatin1(objectPath),
                                                       QString::fromLatin1(serviceName), QStringLiteral("Reveal"));
    const QDBusMessage reply = bus_.call(call, QDBus::Block, 5000);
    return reply.type() == QDBusMessage::ReplyMessage;
}

void SingleInstance::Reveal() {
    emit revealRequested();
}

std::string_view toString(SingleInstance::Role role) {
    switch (role) {
    case SingleInstance::Role::Primary:
        return "Primary";
    case SingleInstance::Role::Secondary:
        return "Secondary";
    case SingleInstance::Role::Alone:
        return "Alone";
    }
    return "Alone";
}

} // namespace host::system
