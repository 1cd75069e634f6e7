#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// Pixel format of a texture file; ASTC is block-compressed.
enum class TextureFormat : int {
    RGBA8,
    RGB8,
    RGB16F,
    RGB32F,
    RGBA16F,
    RGBA32F,
    ASTC,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(TextureFormat value) {
    static constexpr std::string_view names[] = {
        "RGBA8",
        "RGB8",
        "RGB16F",
        "RGB32F",
        "RGBA16F",
        "RGBA32F",
        "ASTC",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
