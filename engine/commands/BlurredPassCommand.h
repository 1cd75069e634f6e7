#pragma once

#include <cstdint>

#include "engine/commands/BlurSize.h"
#include "engine/commands/RenderPassCommand.h"

namespace engine::commands {

/// A render pass whose children draw into an off-screen chain; the result is blurred and kept
/// under `id` for a later DrawBlurredCommand.
class BlurredPassCommand : public RenderPassCommand {
public:
    /// Size of the blur kernel.
    BlurSize blurSize = BlurSize::KERNEL_4;
    /// Size in pixels given to the blur chain when it is created; with the viewport's aspect
    /// ratio it sets the chain's dimensions.
    std::int32_t minSize = 200;
    /// Multiplier of the blurred result.
    float brightness = 1.0f;
    /// Number under which the result is kept; each blurred pass of a scene has its own.
    std::int32_t id = 0;
    /// Stored for scenes that ask for an extra blur step; the GL renderer does not read it.
    bool additionalBlur = false;

    /// An enabled pass with no children and the defaults above.
    BlurredPassCommand() = default;

    /// Always BLURRED_PASS.
    CommandType type() const override { return CommandType::BLURRED_PASS; }
};

} // namespace engine::commands
