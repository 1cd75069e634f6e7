#include "scenes/spirelight/Timers.h"

namespace scenes::spirelight {

void initializeTimers(engine::timers::TimersMap& timers) {
    timers.add(Timers::Planes1, 80000.0f);
    timers.add(Timers::Planes2, 70000.0f);
}

} // namespace scenes::spirelight
