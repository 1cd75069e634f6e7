#pragma once

#include <optional>

namespace host::settings {

/// One notification of a settings key's subscription.
template <typename T>
struct KeyChange {
    /// The decoded value now in force (the default when the entry is absent or undecodable).
    T newValue;
    /// The value before the change; absent on the initial run of a subscription.
    std::optional<T> oldValue;
};

} // namespace host::settings
