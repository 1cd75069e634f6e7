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
///
/// UPower is never waited for: it is asked in the background at creation and at each change
/// it announces, and the last answer is kept. A UPower that is missing, still starting or hung
/// leaves the watcher unanswered, on mains power, until it answers.
class UPowerSourceWatcher : public PowerSourceWatcher {
    Q_OBJECT
public:
    /// A watcher on `bus` that has sent its first question; null when the bus is not connected.
    static std::unique_ptr<UPowerSourceWatcher> create(QDBusConnection bus = QDBusConnection::systemBus());

    /// The source of UPower's last answer; mains before the first and after a failed one.
    PowerSource powerSource() const override { return source_; }

    /// Whether UPower has answered since the watcher was made.
    bool hasAnswered() const override { return answered_; }

private:
    explicit UPowerSourceWatcher(QDBusConnection bus);

    /// Asks UPower for the source; the answer replaces the known one unless a later question
    /// went out in the meantime.
    void ask();
    /// Keeps `source` as UPower's answer to question `question`, announcing a change.
    void answer(unsigned question, PowerSource source);

private slots:
    void onPropertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    QDBusConnection bus_;
    PowerSource source_ = PowerSource::externalUnlimited;
    bool answered_ = false;
    unsigned lastQuestion_ = 0;
};

} // namespace host::system
