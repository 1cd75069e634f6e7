#pragma once

#include <memory>
#include <vector>

#include "engine/commands/Command.h"

namespace engine::commands {

/// A list of children executed in order. The same group object may stand under several parents
/// (a room drawn in the main pass and again in a blurred pass); null entries are allowed and
/// skipped by the scene's walk.
class GroupCommand : public Command {
public:
    /// The children, in execution order.
    std::vector<std::shared_ptr<Command>> commands;

    /// An enabled group with no children.
    GroupCommand() = default;
    /// A group with the given state and a fresh list holding `commands`.
    GroupCommand(bool enabled, std::vector<std::shared_ptr<Command>> commands);

    /// GROUP; the pass classes derived from it answer their own type.
    CommandType type() const override { return CommandType::GROUP; }
};

} // namespace engine::commands
