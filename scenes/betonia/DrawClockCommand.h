#pragma once

#include "engine/commands/Command.h"

namespace scenes::betonia {

/// Marks where a clock goes in the tree. It has no fields; the GPU renderer passes over it and
/// the host draws the clock itself.
class DrawClockCommand : public engine::commands::Command {
public:
    /// Always CUSTOM.
    engine::commands::CommandType type() const override { return engine::commands::CommandType::CUSTOM; }
};

} // namespace scenes::betonia
