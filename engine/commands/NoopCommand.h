#pragma once

#include "engine/commands/Command.h"

namespace engine::commands {

/// A node that does nothing; a placeholder in a tree.
class NoopCommand : public Command {
public:
    /// Always NOOP.
    CommandType type() const override { return CommandType::NOOP; }
};

} // namespace engine::commands
