#pragma once

#include <iterator>
#include <string_view>

namespace renderer::gpu {

/// What becomes of an attachment when its pass ends: dropped (DONT_CARE, invalidated where the
/// driver can), kept (STORE), or resolved into the pass's resolve target and then dropped
/// (MULTISAMPLE_RESOLVE).
enum class StoreAction : int {
    DONT_CARE,
    STORE,
    MULTISAMPLE_RESOLVE,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(StoreAction value) {
    static constexpr std::string_view names[] = {"DONT_CARE", "STORE", "MULTISAMPLE_RESOLVE"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace renderer::gpu
