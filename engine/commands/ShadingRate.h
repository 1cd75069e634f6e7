#pragma once

#include <iterator>
#include <string_view>

namespace engine::commands {

/// A variable shading rate: how many pixels, across by down, share one fragment shader run.
/// The ordinal is the position in this list; the integer the rate carries is `value`.
enum class ShadingRate : int {
    SHADING_RATE_1X1,
    SHADING_RATE_1X2,
    SHADING_RATE_2X1,
    SHADING_RATE_2X2,
    SHADING_RATE_4X2,
    SHADING_RATE_4X4,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(ShadingRate value) {
    static constexpr std::string_view names[] = {
        "SHADING_RATE_1X1", "SHADING_RATE_1X2", "SHADING_RATE_2X1",
        "SHADING_RATE_2X2", "SHADING_RATE_4X2", "SHADING_RATE_4X4",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// The integer the rate carries (0x96A6 for 1x1 up to 0x96AE for 4x4, the numbering of the
/// graphics interfaces that take such rates); -1 for a value outside the enumeration.
constexpr int value(ShadingRate rate) {
    constexpr int values[] = {0x96A6, 0x96A7, 0x96A8, 0x96A9, 0x96AC, 0x96AE};
    const auto index = static_cast<std::size_t>(rate);
    return index < std::size(values) ? values[index] : -1;
}

} // namespace engine::commands
