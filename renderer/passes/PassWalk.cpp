#include "renderer/passes/PassWalk.h"

#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/GroupCommand.h"
#include "renderer/Fatal.h"
#include "renderer/SceneRenderer.h"

namespace renderer::passes {

using engine::commands::ClearColorCommand;
using engine::commands::ClearCommand;
using engine::commands::ClearCommandClearType;
using engine::commands::Command;
using engine::commands::CommandType;
using engine::commands::GroupCommand;

namespace {

/// Whether `command` holds children that the walks go through: groups and passes of any kind.
bool isGroup(const Command& command) {
    switch (command.type()) {
    case CommandType::GROUP:
    case CommandType::RENDER_PASS:
    case CommandType::MAIN_PASS:
    case CommandType::BLURRED_PASS:
        return true;
    default:
        return false;
    }
}

const Command& existing(const std::shared_ptr<Command>& command) {
    if (!command) {
        Fatal::stop("Missing command in the command tree");
    }
    return *command;
}

const engine::Scene::CommandList& children(const Command& group) {
    return static_cast<const GroupCommand&>(group).commands;
}

} // namespace

void PassWalk::process(const engine::Scene::CommandList& commands, const FrameTarget& target) {
    for (const auto& pointer : commands) {
        const Command& command = existing(pointer);
        if (!command.enabled) {
            continue;
        }
        switch (command.type()) {
        case CommandType::MAIN_PASS:
            renderer_.processMainPass(static_cast<const engine::commands::MainPassCommand&>(command), target);
            break;
        case CommandType::BLURRED_PASS:
            renderer_.processBlurredPass(static_cast<const engine::commands::BlurredPassCommand&>(command));
            break;
        case CommandType::GROUP:
        case CommandType::RENDER_PASS:
            process(children(command), target);
            break;
        default:
            break;
        }
    }
}

void PassWalk::prepare(const engine::Scene::CommandList& commands, gpu::RenderPassDescriptor& descriptor) {
    for (const auto& pointer : commands) {
        const Command& command = existing(pointer);
        if (!command.enabled) {
            continue;
        }
        if (isGroup(command)) {
            prepare(children(command), descriptor);
        } else if (command.type() == CommandType::CLEAR_COLOR) {
            const auto& clear = static_cast<const ClearColorCommand&>(command);
            renderer_.clearColor = {clear.color.r(), clear.color.g(), clear.color.b(), clear.color.a()};
            descriptor.colorAttachment.clearColor = renderer_.clearColor;
        } else if (command.type() == CommandType::CLEAR) {
            const ClearCommandClearType type = static_cast<const ClearCommand&>(command).clearType;
            if (type == ClearCommandClearType::COLOR || type == ClearCommandClearType::COLOR_AND_DEPTH) {
                descriptor.colorAttachment.loadAction = gpu::LoadAction::CLEAR;
            }
            if (type == ClearCommandClearType::DEPTH || type == ClearCommandClearType::COLOR_AND_DEPTH) {
                descriptor.depthAttachment.loadAction = gpu::LoadAction::CLEAR;
            }
        }
    }
}

void PassWalk::encode(const engine::Scene::CommandList& commands, gpu::RenderPassDescriptor& descriptor,
                      gpu::RenderEncoder& encoder) {
    for (const auto& pointer : commands) {
        const Command& command = existing(pointer);
        if (!command.enabled) {
            continue;
        }
        if (isGroup(command)) {
            encode(children(command), descriptor, encoder);
            continue;
        }
        switch (command.type()) {
        case CommandType::VIGNETTE:
            renderer_.drawVignette(static_cast<const engine::commands::VignetteCommand&>(command), encoder);
            break;
        case CommandType::DRAW_MESH:
            renderer_.drawMesh(static_cast<const engine::commands::DrawMeshCommand&>(command), encoder);
            break;
        case CommandType::DRAW_BLURRED:
            renderer_.drawBlurred(pointer, encoder);
            break;
        default:
            break;
        }
    }
}

} // namespace renderer::passes
