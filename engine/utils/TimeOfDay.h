#pragma once

#include <string_view>

namespace engine::utils {

/// The user's choice of the phase of the day: follow the wall clock, or one fixed phase.
enum class TimeOfDay : int {
    Auto = 0,
    Night = 1,
    Dawn = 2,
    Day = 3,
    Dusk = 4,
};

/// The constant's name: "Auto", "Night", "Dawn", "Day", "Dusk".
std::string_view toString(TimeOfDay timeOfDay);

/// Parses the stored setting: "auto", "night", "dawn", "day", "dusk" (exactly, lower case);
/// anything else is Auto.
TimeOfDay fromString(std::string_view time);

} // namespace engine::utils
