#pragma once

#include "engine/utils/LocalTime.h"
#include "engine/utils/TimeOfDay.h"

#include <functional>
#include <optional>
#include <utility>

namespace engine::utils {

/// Turns the user's time-of-day choice into the phase in force. A fixed choice is copied as it
/// stands; Auto follows the local wall clock: night until 06:00, dawn until 09:00, day until
/// 17:00, dusk until 19:00, then night. The owner polls updateTimeOfDay on a timer; the phase
/// changes only on such a call.
class DynamicTimeOfDay {
public:
    /// Reads the local wall clock as (hour 0..23, minute 0..59).
    using Clock = std::function<std::pair<int, int>()>;

    /// Creates the object with the choice Auto and no phase yet. `clock` replaces the system's
    /// local time (tests); empty means getCurrentHour and getCurrentMinute.
    explicit DynamicTimeOfDay(Clock clock = {});

    /// Stores the choice, then updates the phase.
    void setTimeOfDay(TimeOfDay timeOfDay);

    /// Brings the phase up to date. True only when Auto is chosen and the clock changed the
    /// phase (the first call counts as a change); a fixed choice always gives false.
    bool updateTimeOfDay();

    /// The phase in force; absent until the first update. Never Auto when the choice is Auto.
    std::optional<TimeOfDay> dynamicTimeOfDay() const { return dynamicTimeOfDay_; }

private:
    TimeOfDay timeOfDay = TimeOfDay::Auto;
    std::optional<TimeOfDay> dynamicTimeOfDay_;
    Clock clock;
};

} // namespace engine::utils
