#pragma once

#include "engine/commands/Command.h"
#include "engine/math/Vec4.h"

namespace engine::commands {

/// Darkens the corners of the current pass by multiplying a fixed mesh over it, shaded from
/// `color0` at the edges to `color1` inside.
class VignetteCommand : public Command {
public:
    /// Colour at the edges; opaque black by default.
    math::Vec4 color0{0.0f, 0.0f, 0.0f, 1.0f};
    /// Colour towards the centre; opaque black by default.
    math::Vec4 color1{0.0f, 0.0f, 0.0f, 1.0f};

    /// Always VIGNETTE.
    CommandType type() const override { return CommandType::VIGNETTE; }
};

} // namespace engine::commands
