#pragma once

#include "host/system/PowerSource.h"

#include <QObject>

namespace host::system {

/// The present power source and its changes.
///
/// A machine without a power-source service has no watcher at all (null where one is passed),
/// and then no limit on battery applies.
class PowerSourceWatcher : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~PowerSourceWatcher() override = default;

    /// The present source, read afresh from the system.
    virtual PowerSource powerSource() const = 0;

signals:
    /// The source changed; carries the new one.
    void didChange(host::system::PowerSource source);
};

} // namespace host::system
