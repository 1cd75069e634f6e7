#pragma once

#include <iterator>
#include <string_view>

namespace renderer::gpu {

/// The winding of front-facing triangles of a pass.
enum class Winding : int {
    CLOCKWISE,
    COUNTER_CLOCKWISE,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(Winding value) {
    static constexpr std::string_view names[] = {"CLOCKWISE", "COUNTER_CLOCKWISE"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace renderer::gpu
