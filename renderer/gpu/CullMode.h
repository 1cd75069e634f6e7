#pragma once

#include <iterator>
#include <string_view>

namespace renderer::gpu {

/// Which faces a draw removes. NONE draws both sides.
enum class CullMode : int {
    NONE,
    FRONT,
    BACK,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(CullMode value) {
    static constexpr std::string_view names[] = {"NONE", "FRONT", "BACK"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace renderer::gpu
