#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// How texture coordinates outside 0..1 are folded back.
enum class TextureWrapping : int {
    CLAMP_TO_EDGE,
    MIRRORED_REPEAT,
    REPEAT,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(TextureWrapping value) {
    static constexpr std::string_view names[] = {
        "CLAMP_TO_EDGE",
        "MIRRORED_REPEAT",
        "REPEAT",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
