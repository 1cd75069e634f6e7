#pragma once

#include "host/system/PowerSourceWatcher.h"

#include <QDBusConnection>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <memory>

namespace host::system {

/// The power source as UPower reports it on the system bus: `OnBattery` false is mains power;
/// true is the battery, or a UPS when UPower's display device is one.
class UPowerSourceWatcher : public PowerSourceWatcher {
    Q_OBJECT
public:
    /// A watcher on `bus`, or null when UPower does not answer there (no watcher, no limit).
    static std::unique_ptr<UPowerSourceWatcher> create(QDBusConnection bus = QDBusConnection::systemBus());

    /// Asks UPower now; a failed call counts as mains power.
    PowerSource powerSource() const override;

private:
    explicit UPowerSourceWatcher(QDBusConnection bus);

private slots:
    void onPropertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    QDBusConnection bus_;
};

} // namespace host::system
