#include "scenes/nivalis/Timers.h"

namespace scenes::nivalis {

void initializeTimers(engine::timers::TimersMap& timers) {
    timers.add(Timers::Water, 720000.0f);
    timers.add(Timers::WaterLarge, 60000.0f);
    timers.add(Timers::CloudsRotation, 300000.0f);
    timers.add(Timers::CloudsAnimation, 15000.0f);
    timers.add(Timers::BirdWings1, 1000.0f);
    timers.add(Timers::BirdWings2, 900.0f);
    timers.add(Timers::BirdsFly, 75000.0f);
    timers.add(Timers::Ships, 200000.0f);
    timers.add(Timers::PenguinIdle, 5000.0f);
    timers.add(Timers::PenguinIdle2, 5000.0f);
    timers.add(Timers::SealIdleAnim, 4000.0f);
    timers.add(Timers::SealWalkAnim, 1900.0f);
    timers.add(Timers::SealWalkSpline, 114000.0f);
}

} // namespace scenes::nivalis
