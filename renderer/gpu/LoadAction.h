#pragma once

#include <iterator>
#include <string_view>

namespace renderer::gpu {

/// What an attachment holds when its pass begins: whatever was there (DONT_CARE, LOAD; the
/// renderer's multisampled targets never keep anything, so both mean "undefined" for them) or
/// the attachment's clear value (CLEAR).
enum class LoadAction : int {
    DONT_CARE,
    LOAD,
    CLEAR,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(LoadAction value) {
    static constexpr std::string_view names[] = {"DONT_CARE", "LOAD", "CLEAR"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace renderer::gpu
