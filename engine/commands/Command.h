#pragma once

#include <string>

#include "engine/commands/CommandType.h"

namespace engine::commands {

/// A node of the command tree that a scene builds once and the renderer walks every frame.
/// Nodes are plain data: they carry no behaviour, and the renderer decides what to do from the
/// node's class or `type()`. A node may hang under several parents (it is held through
/// std::shared_ptr and lives as long as any parent holds it), so switching it off takes it out
/// of every place it stands.
class Command {
public:
    /// Label for debugging and for finding a node; no other meaning.
    std::string name;
    /// A node that is not enabled is skipped with its whole subtree, by the renderer and by the
    /// scene's matrix walk alike.
    bool enabled = true;

    virtual ~Command() = default;

    /// The kind of the node.
    virtual CommandType type() const = 0;

protected:
    Command() = default;
    Command(const Command&) = default;
    Command& operator=(const Command&) = default;
};

} // namespace engine::commands
