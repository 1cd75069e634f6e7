#include "host/system/UPowerSourceWatcher.h"

#include "host/system/DBusRequest.h"

namespace host::system {

namespace {

const QString kService = QStringLiteral("org.freedesktop.UPower");
const QString kPath = QStringLiteral("/org/freedesktop/UPower");
const QString kInterface = QStringLiteral("org.freedesktop.UPower");
const QString kOnBattery = QStringLiteral("OnBattery");
const QString kDisplayDevice = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const QString kDeviceInterface = QStringLiteral("org.freedesktop.UPower.Device");
constexpr uint kDeviceTypeUps = 3;

} // namespace

std::unique_ptr<UPowerSourceWatcher> UPowerSourceWatcher::create(QDBusConnection bus) {
    if (!bus.isConnected()) {
        return nullptr;
    }
    auto watcher = std::unique_ptr<UPowerSourceWatcher>(new UPowerSourceWatcher(std::move(bus)));
    // The question also starts UPower where it is activatable.
    watcher->ask();
    return watcher;
}

UPowerSourceWatcher::UPowerSourceWatcher(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.connect(kService, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"),
                 this, SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
}

void UPowerSourceWatcher::ask() {
    const unsigned question = ++lastQuestion_;
    requestProperty(bus_, kService, kPath, kInterface, kOnBattery, this, [this, question](const QVariant& onBattery) {
        if (!onBattery.isValid()) {
            // No UPower (yet): the watcher stays unanswered; once it has answered, a failure
            // counts as mains power.
            if (answered_) {
                answer(question, PowerSource::externalUnlimited);
            }
            return;
        }
        if (!onBattery.toBool()) {
            answer(question, PowerSource::externalUnlimited);
            return;
        }
        requestProperty(bus_, kService, kDisplayDevice, kDeviceInterface, QStringLiteral("Type"), this,
                        [this, question](const QVariant& type) {
                            const bool ups = type.isValid() && type.toUInt() == kDeviceTypeUps;
                            answer(question, ups ? PowerSource::externalUPS : PowerSource::internalBattery);
                        });
    });
}

void UPowerSourceWatcher::answer(unsigned question, PowerSource source) {
    if (question != lastQuestion_) {
        return; // a later question is under way; its answer is the newer one
    }
    const bool changed = !answered_ || source != source_;
    answered_ = true;
    source_ = source;
    if (changed) {
        emit didChange(source);
    }
}

void UPowerSourceWatcher::onPropertiesChanged(const QString& interface, const QVariantMap& changed,
                                              const QStringList& invalidated) {
    if (interface == kInterface && (changed.contains(kOnBattery) || invalidated.contains(kOnBattery))) {
        ask();
    }
}

} // namespace host::system
