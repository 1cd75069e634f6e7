#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// The weight given to the source or the destination of a blend.
enum class BlendingFactor : int {
    ZERO,
    ONE,
    SRC_COLOR,
    ONE_MINUS_SRC_COLOR,
    DST_COLOR,
    ONE_MINUS_DST_COLOR,
    SRC_ALPHA,
    ONE_MINUS_SRC_ALPHA,
    DST_ALPHA,
    ONE_MINUS_DST_ALPHA,
    CONSTANT_COLOR,
    ONE_MINUS_CONSTANT_COLOR,
    CONSTANT_ALPHA,
    ONE_MINUS_CONSTANT_ALPHA,
    SRC_ALPHA_SATURATE,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(BlendingFactor value) {
    static constexpr std::string_view names[] = {
        "ZERO",
        "ONE",
        "SRC_COLOR",
        "ONE_MINUS_SRC_COLOR",
        "DST_COLOR",
        "ONE_MINUS_DST_COLOR",
        "SRC_ALPHA",
        "ONE_MINUS_SRC_ALPHA",
        "DST_ALPHA",
        "ONE_MINUS_DST_ALPHA",
        "CONSTANT_COLOR",
        "ONE_MINUS_CONSTANT_COLOR",
        "CONSTANT_ALPHA",
        "ONE_MINUS_CONSTANT_ALPHA",
        "SRC_ALPHA_SATURATE",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
