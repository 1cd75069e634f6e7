#include "engine/timers/TimersMap.h"

#include "engine/IllegalStateError.h"

#include <cmath>

namespace engine::timers {

TimersMap::TimersMap() { entries.reserve(8); }

void TimersMap::addEntry(const Key& key, float period, bool rotating) {
    for (Entry& entry : entries) {
        if (entry.key == key) {
            entry.params = TimerParams(0.0f, period, rotating);
            return;
        }
    }
    entries.push_back(Entry{key, TimerParams(0.0f, period, rotating)});
}

TimerParams& TimersMap::find(const Key& key) {
    for (Entry& entry : entries) {
        if (entry.key == key) {
            return entry.params;
        }
    }
    throw engine::IllegalStateError("Timer not found");
}

const TimerParams& TimersMap::find(const Key& key) const {
    return const_cast<TimersMap*>(this)->find(key);
}

void TimersMap::iterate(double timeNow) {
    for (Entry& entry : entries) {
        TimerParams& p = entry.params;
        // The quotient is taken in double precision, then the phase is advanced in single
        // precision: long clock readings divided by short periods keep their fraction.
        const float delta = static_cast<float>((timeNow - lastTime) / static_cast<double>(p.period));
        const float t = p.timer + delta;
        p.timer = t;
        if (p.rotating) {
            p.timer = std::fmod(t, 1.0f);
        } else if (t > 1.0f) {
            p.timer = 1.0f;
        }
    }
    lastTime = timeNow;
}

} // namespace engine::timers
