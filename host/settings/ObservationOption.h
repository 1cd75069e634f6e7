#pragma once

#include <string_view>

namespace host::settings {

/// How a subscription to a settings key starts.
enum class ObservationOption : int {
    /// Only later changes reach the handler.
    None,
    /// The handler also runs once, synchronously, inside the subscribing call, with the
    /// current value.
    Initial,
};

/// The constant's name: "None" or "Initial".
std::string_view toString(ObservationOption option);

} // namespace host::settings
