#include "scenes/example/Timers.h"

namespace scenes::example {

void initializeTimers(engine::timers::TimersMap& timers) {
    timers.add(Timers::Clouds1, 250000.0f);
    timers.add(Timers::Clouds2, 300000.0f);
    timers.add(Timers::BirdsFly, 25000.0f);
    timers.add(Timers::Camera, 34000.0f);
    timers.add(Timers::Water, 2500.0f);
    timers.add(Timers::BirdWings1, 1000.0f);
    timers.add(Timers::BirdWings2, 900.0f);
    timers.add(Timers::AnimalAnimation, 6000.0f);
    timers.add(Timers::ShootingStar, 1000.0f);
}

} // namespace scenes::example
