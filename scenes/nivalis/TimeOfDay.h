#pragma once

#include <array>
#include <iterator>
#include <string_view>

namespace scenes::nivalis {

/// The scene's four moods. The ordinal indexes Colors::COLORS, Textures::palettes and
/// Textures::skies. Distinct from the engine's engine::utils::TimeOfDay, which the renderer maps
/// onto this one.
enum class TimeOfDay : int {
    Day,
    Night,
    Sunrise,
    Sunset,
};

/// Every constant, in ordinal order.
inline constexpr std::array<TimeOfDay, 4> TIME_OF_DAY_ENTRIES{TimeOfDay::Day, TimeOfDay::Night, TimeOfDay::Sunrise,
                                                              TimeOfDay::Sunset};

/// The constant's exact name ("Day", "Night", "Sunrise", "Sunset"); empty outside the enumeration.
inline std::string_view toString(TimeOfDay value) {
    static constexpr std::string_view names[] = {"Day", "Night", "Sunrise", "Sunset"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

} // namespace scenes::nivalis
