#pragma once

#include <iterator>
#include <string_view>

namespace engine::commands {

/// How a draw's indices are assembled into primitives.
enum class PrimitiveType : int {
    TRIANGLES,
    TRIANGLE_STRIP,
    POINTS,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(PrimitiveType value) {
    static constexpr std::string_view names[] = {
        "TRIANGLES",
        "TRIANGLE_STRIP",
        "POINTS",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine::commands
