#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// Minification and magnification filters of a texture.
enum class TextureFiltering : int {
    NEAREST,
    LINEAR,
    NEAREST_MIPMAP_NEAREST,
    LINEAR_MIPMAP_NEAREST,
    NEAREST_MIPMAP_LINEAR,
    LINEAR_MIPMAP_LINEAR,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(TextureFiltering value) {
    static constexpr std::string_view names[] = {
        "NEAREST",
        "LINEAR",
        "NEAREST_MIPMAP_NEAREST",
        "LINEAR_MIPMAP_NEAREST",
        "NEAREST_MIPMAP_LINEAR",
        "LINEAR_MIPMAP_LINEAR",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
