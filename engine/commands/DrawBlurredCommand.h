#pragma once

#include <cstdint>
#include <memory>

#include "engine/Blending.h"
#include "engine/commands/Command.h"

namespace engine::commands {

/// Draws the result of a blurred pass as a full-screen quad into the current pass.
class DrawBlurredCommand : public Command {
public:
    /// How the quad is mixed with what is there; BLENDING_NONE by default.
    std::shared_ptr<Blending> blending = BLENDING_NONE;
    /// The `id` of the BlurredPassCommand whose result is shown.
    std::int32_t id = 0;

    /// Always DRAW_BLURRED.
    CommandType type() const override { return CommandType::DRAW_BLURRED; }
};

} // namespace engine::commands
