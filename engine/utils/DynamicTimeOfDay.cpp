#include "engine/utils/DynamicTimeOfDay.h"

#include <utility>

namespace engine::utils {

namespace {

// Upper ends of the phases as fractions of the day, as single-precision floats: 17:00 and 19:00
// land exactly on them and so fall on the upper side.
constexpr float kDawnStart = 0.25f;
constexpr float kDayStart = 0.375f;
constexpr float kDuskStart = 0.7083333f;
constexpr float kNightStart = 0.7916667f;

TimeOfDay phaseAt(float f) {
    if (f < kDawnStart) {
        return TimeOfDay::Night;
    }
    if (f < kDayStart) {
        return TimeOfDay::Dawn;
    }
    if (f < kDuskStart) {
        return TimeOfDay::Day;
    }
    if (f < kNightStart) {
        return TimeOfDay::Dusk;
    }
    return TimeOfDay::Night;
}

} // namespace

DynamicTimeOfDay::DynamicTimeOfDay(Clock clock) : clock(std::move(clock)) {}

void DynamicTimeOfDay::setTimeOfDay(TimeOfDay value) {
    timeOfDay = value;
    updateTimeOfDay();
}

bool DynamicTimeOfDay::updateTimeOfDay() {
    if (timeOfDay != TimeOfDay::Auto) {
        dynamicTimeOfDay_ = timeOfDay;
        return false;
    }
    const std::optional<TimeOfDay> old = dynamicTimeOfDay_;
    int hour = 0;
    int minute = 0;
    if (clock) {
        const auto [h, m] = clock();
        hour = h;
        minute = m;
    } else {
        hour = getCurrentHour();
        minute = getCurrentMinute();
    }
    const float hours = static_cast<float>(hour + minute / 60.0);
    const float f = hours / 24.0f;
    const TimeOfDay phase = phaseAt(f);
    dynamicTimeOfDay_ = phase;
    return !old.has_value() || *old != phase;
}

} // namespace engine::utils
