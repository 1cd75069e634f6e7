#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// Which faces of a draw are culled; DISABLED draws both sides.
enum class CullFace : int {
    FRONT,
    BACK,
    FRONT_AND_BACK,
    DISABLED,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(CullFace value) {
    static constexpr std::string_view names[] = {
        "FRONT",
        "BACK",
        "FRONT_AND_BACK",
        "DISABLED",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
