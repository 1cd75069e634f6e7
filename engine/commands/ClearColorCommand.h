#pragma once

#include "engine/commands/Command.h"
#include "engine/math/Vec4.h"

namespace engine::commands {

/// Sets the colour that the clears of the current pass use from then on. The colour is held by
/// value: a scene that changes it keeps this node and writes into (or assigns) `color`.
class ClearColorCommand : public Command {
public:
    /// The clear colour, read as r, g, b, a; transparent black by default.
    math::Vec4 color{0.0f, 0.0f, 0.0f, 0.0f};

    /// Always CLEAR_COLOR.
    CommandType type() const override { return CommandType::CLEAR_COLOR; }
};

} // namespace engine::commands
