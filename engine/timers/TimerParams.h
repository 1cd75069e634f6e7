#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace engine::timers {

/// One entry of a TimersMap: a phase that runs from 0 to 1 in `period` milliseconds and then
/// either wraps and starts again (`rotating`) or stops at 1.
class TimerParams {
public:
    /// Current phase.
    float timer = 0.0f;
    /// Milliseconds that one run of the phase from 0 to 1 takes.
    float period = 0.0f;
    /// True: the phase wraps at 1; false: it stops at 1.
    bool rotating = true;

    TimerParams() = default;
    /// Creates the entry (timer, period, rotating).
    TimerParams(float timer, float period, bool rotating) : timer(timer), period(period), rotating(rotating) {}

    /// Structural equality of all fields.
    bool operator==(const TimerParams&) const = default;
    /// Hash over all fields, consistent with equality.
    std::size_t hash() const;
    /// "TimerParams(timer=0.0, period=1000.0, rotating=true)".
    std::string toString() const;
};

} // namespace engine::timers

template <> struct std::hash<engine::timers::TimerParams> {
    std::size_t operator()(const engine::timers::TimerParams& v) const { return v.hash(); }
};
