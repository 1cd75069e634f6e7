#pragma once

#include <string_view>

namespace host::system {

/// Where the machine takes its power from.
enum class PowerSource : int {
    /// Running on the machine's own battery.
    internalBattery,
    /// Mains power (also what an unknown source counts as).
    externalUnlimited,
    /// An uninterruptible power supply; counts as external, with no limit.
    externalUPS,
};

/// The constant's name, e.g. "internalBattery".
std::string_view toString(PowerSource source);

} // namespace host::system
