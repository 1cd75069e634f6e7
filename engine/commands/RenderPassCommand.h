#pragma once

#include "engine/commands/GroupCommand.h"

namespace engine::commands {

/// A group that opens a render pass of its own for its children.
class RenderPassCommand : public GroupCommand {
public:
    using GroupCommand::GroupCommand;

    /// RENDER_PASS.
    CommandType type() const override { return CommandType::RENDER_PASS; }
};

} // namespace engine::commands
