#pragma once

#include "host/system/PowerSource.h"

#include <QObject>

namespace host::system {

/// The last known power source and its changes.
///
/// A machine without a power-source service has no watcher at all (null where one is passed),
/// and then no limit on battery applies; neither does it for a watcher whose service has not
/// answered yet.
class PowerSourceWatcher : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~PowerSourceWatcher() override = default;

    /// The last known source, without asking the system (mains until the service answers).
    virtual PowerSource powerSource() const = 0;

    /// Whether the service has answered at least once: until then the machine counts as one
    /// without a power-source service.
    virtual bool hasAnswered() const = 0;

signals:
    /// The known source changed, or became known with the service's first answer; carries it.
    void didChange(host::system::PowerSource source);
};

} // namespace host::system
