#include "host/system/UPowerSourceWatcher.h"

#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace host::system {

namespace {

const QString kService = QStringLiteral("org.freedesktop.UPower");
const QString kPath = QStringLiteral("/org/freedesktop/UPower");
const QString kInterface = QStringLiteral("org.freedesktop.UPower");
const QString kDisplayDevice = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const QString kDeviceInterface = QStringLiteral("org.freedesktop.UPower.Device");
constexpr uint kDeviceTypeUps = 3;
constexpr int kTimeoutMs = 2000;

/// A property read with org.freedesktop.DBus.Properties.Get; invalid on any failure.
QVariant getProperty(const QDBusConnection& bus, const QString& path, const QString& interface, const QString& name) {
    QDBusMessage call = QDBusMessage::createMethodCall(kService, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                       QStringLiteral("Get"));
    call << interface << name;
    QDBusReply<QDBusVariant> reply = bus.call(call, QDBus::Block, kTimeoutMs);
    if (!reply.isValid()) {
        return {};
    }
    return reply.value().variant();
}

} // namespace

std::unique_ptr<UPowerSourceWatcher> UPowerSourceWatcher::create(QDBusConnection bus) {
    if (!bus.isConnected()) {
        return nullptr;
    }
    // The call also starts UPower where it is activatable.
    if (!getProperty(bus, kPath, kInterface, QStringLiteral("OnBattery")).isValid()) {
        return nullptr;
    }
    return std::unique_ptr<UPowerSourceWatcher>(new UPowerSourceWatcher(bus));
}

UPowerSourceWatcher::UPowerSourceWatcher(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.connect(kService, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
                 this, SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
}

PowerSource UPowerSourceWatcher::powerSource() const {
    const QVariant onBattery = getProperty(bus_, kPath, kInterface, QStringLiteral("OnBattery"));
    if (!onBattery.isValid() || !onBattery.toBool()) {
        return PowerSource::externalUnlimited;
    }
    const QVariant type = getProperty(bus_, kDisplayDevice, kDeviceInterface, QStringLiteral("Type"));
    if (type.isValid() && type.toUInt() == kDeviceTypeUps) {
        return PowerSource::externalUPS;
    }
    return PowerSource::internalBattery;
}

void UPowerSourceWatcher::onPropertiesChanged(const QString& interface, const QVariantMap& changed,
                                              const QStringList& invalidated) {
    if (interface != kInterface) {
        return;
    }
    const QString name = QStringLiteral("OnBattery");
    if (changed.contains(name) || invalidated.contains(name)) {
        emit didChange(powerSource());
    }
}

} // namespace host::system
