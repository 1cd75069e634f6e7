#include "engine/timers/TimerParams.h"

#include "engine/common/Hash.h"
#include "engine/common/TextForm.h"

namespace engine::timers {

std::size_t TimerParams::hash() const {
    std::size_t seed = 0;
    engine::common::hashCombine(seed, timer);
    engine::common::hashCombine(seed, period);
    engine::common::hashCombine(seed, rotating);
    return seed;
}

std::string TimerParams::toString() const {
    using engine::common::TextForm;
    return "TimerParams(timer=" + TextForm::number(timer) + ", period=" + TextForm::number(period) +
           ", rotating=" + (rotating ? "true" : "false") + ")";
}

} // namespace engine::timers
