#include "scenes/common/DrawBlurredResult.h"

#include "engine/Blending.h"

namespace scenes::common {

std::shared_ptr<engine::commands::DrawBlurredCommand> drawBlurredResult() {
    auto draw = std::make_shared<engine::commands::DrawBlurredCommand>();
    draw->name = "draw blurred";
    draw->id = 0;
    draw->blending = engine::BLENDING_NONE;
    return draw;
}

} // namespace scenes::common
