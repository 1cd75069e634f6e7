#include "engine/commands/GroupCommand.h"

#include <utility>

namespace engine::commands {

GroupCommand::GroupCommand(bool enabled_, std::vector<std::shared_ptr<Command>> commands_)
    : commands(std::move(commands_)) {
    enabled = enabled_;
}

} // namespace engine::commands
