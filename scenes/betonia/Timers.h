#pragma once

#include <array>
#include <iterator>
#include <string_view>

namespace scenes::betonia {

/// Keys of the scene's timers. The scene adds none to its map: the camera keeps its own clock.
enum class Timers : int {
    Camera,
};

/// Every constant, in ordinal order.
inline constexpr std::array<Timers, 1> TIMERS_ENTRIES{Timers::Camera};

/// The constant's exact name; empty outside the enumeration.
inline std::string_view toString(Timers value) {
    static constexpr std::string_view names[] = {"Camera"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace scenes::betonia
