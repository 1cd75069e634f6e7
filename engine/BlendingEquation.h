#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// How a blended source and destination are combined.
enum class BlendingEquation : int {
    ADD,
    SUBTRACT,
    REVERSE_SUBTRACT,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(BlendingEquation value) {
    static constexpr std::string_view names[] = {
        "ADD",
        "SUBTRACT",
        "REVERSE_SUBTRACT",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
