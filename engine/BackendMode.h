#pragma once

#include <iterator>
#include <string_view>

namespace engine {

/// Which clip-space depth range the projection is built for: OPENGL maps depth to
/// -1..1, METAL to 0..1. The renderer stores its own mode right after creating the scene.
enum class BackendMode : int {
    OPENGL,
    METAL,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(BackendMode value) {
    static constexpr std::string_view names[] = {
        "OPENGL",
        "METAL",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace engine
