#pragma once

#include <memory>

#include "engine/commands/DrawBlurredCommand.h"

namespace scenes::common {

/// The draw that puts a blurred tree's picture on screen: "draw blurred", showing the blurred
/// result 0 without blending. Each blurred scene shows its picture this way.
std::shared_ptr<engine::commands::DrawBlurredCommand> drawBlurredResult();

} // namespace scenes::common
