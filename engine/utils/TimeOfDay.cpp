#include "engine/utils/TimeOfDay.h"

namespace engine::utils {

std::string_view toString(TimeOfDay timeOfDay) {
    switch (timeOfDay) {
    case TimeOfDay::Auto:
        return "Auto";
    case TimeOfDay::Night:
        return "Night";
    case TimeOfDay::Dawn:
        return "Dawn";
    case TimeOfDay::Day:
        return "Day";
    case TimeOfDay::Dusk:
        return "Dusk";
    }
    return "";
}

TimeOfDay fromString(std::string_view time) {
    if (time == "day") {
        return TimeOfDay::Day;
    }
    if (time == "dusk") {
        return TimeOfDay::Dusk;
    }
    if (time == "dawn") {
        return TimeOfDay::Dawn;
    }
    if (time == "night") {
        return TimeOfDay::Night;
    }
    return TimeOfDay::Auto; // "auto" and every unknown text
}

} // namespace engine::utils
