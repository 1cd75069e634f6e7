#pragma once

#include "engine/commands/RenderPassCommand.h"

namespace engine::commands {

/// The render pass whose result goes to the screen.
class MainPassCommand : public RenderPassCommand {
public:
    using RenderPassCommand::RenderPassCommand;

    /// Always MAIN_PASS.
    CommandType type() const override { return CommandType::MAIN_PASS; }
};

} // namespace engine::commands
