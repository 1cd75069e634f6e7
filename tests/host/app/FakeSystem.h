#pragma once

#include "host/system/PowerSourceWatcher.h"
#include "host/system/SystemEvents.h"

namespace host::testing {

/// System events driven by the test: emit the signals directly, set `lowPower` for the
/// power-saver mode.
class FakeSystemEvents : public system::SystemEvents {
public:
    bool lowPower = false;
    bool isLowPowerModeEnabled() const override { return lowPower; }
};

/// A power source the test sets; `change` sets it and announces it, as a real unplug would
/// (or a late first answer, with `answered` false before).
class FakePowerSourceWatcher : public system::PowerSourceWatcher {
public:
    system::PowerSource source = system::PowerSource::externalUnlimited;
    bool answered = true;
    system::PowerSource powerSource() const override { return source; }
    bool hasAnswered() const override { return answered; }
    void change(system::PowerSource next) {
        source = next;
        answered = true;
        emit didChange(next);
    }
};

} // namespace host::testing
