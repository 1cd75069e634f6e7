#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// Dimensionality of a texture.
enum class TextureType : int {
    TEX_1D,
    TEX_2D,
    TEX_3D,
    CUBEMAP,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(TextureType value) {
    static constexpr std::string_view names[] = {
        "TEX_1D",
        "TEX_2D",
        "TEX_3D",
        "CUBEMAP",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
