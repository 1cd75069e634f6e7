#pragma once

#include <iterator>
#include <string_view>

namespace engine::commands {

/// The kind of a command node, as the renderer dispatches on it. Draws of every flavour report
/// DRAW_MESH; commands that a scene defines for itself report CUSTOM.
enum class CommandType : int {
    NOOP,
    GROUP,
    CLEAR_COLOR,
    CLEAR,
    VIGNETTE,
    DRAW_MESH,
    BLURRED_PASS,
    DRAW_BLURRED,
    RENDER_PASS,
    MAIN_PASS,
    CUSTOM,
};

/// The constant's exact name; empty for a value outside the enumeration.
inline std::string_view toString(CommandType value) {
    static constexpr std::string_view names[] = {
        "NOOP", "GROUP", "CLEAR_COLOR", "CLEAR", "VIGNETTE", "DRAW_MESH",
        "BLURRED_PASS", "DRAW_BLURRED", "RENDER_PASS", "MAIN_PASS", "CUSTOM",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// The integer a command type carries; it equals the ordinal.
constexpr int value(CommandType type) { return static_cast<int>(type); }

} // namespace engine::commands
