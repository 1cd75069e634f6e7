#pragma once

#include "engine/commands/ClearCommandClearType.h"
#include "engine/commands/Command.h"

namespace engine::commands {

/// Clears the attachments of the current pass at its start.
class ClearCommand : public Command {
public:
    /// Which attachments are cleared.
    ClearCommandClearType clearType = ClearCommandClearType::COLOR_AND_DEPTH;

    /// Always CLEAR.
    CommandType type() const override { return CommandType::CLEAR; }
};

} // namespace engine::commands
