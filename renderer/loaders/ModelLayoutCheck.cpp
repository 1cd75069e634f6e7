#include "renderer/loaders/ModelLayoutCheck.h"

#include <exception>
#include <set>
#include <string>
#include <utility>

#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "renderer/Fatal.h"

namespace renderer::loaders {

namespace {

using engine::commands::Command;
using engine::commands::DrawMeshCommand;
using engine::commands::GroupCommand;

// (model position, stride) pairs of the tree's draws; a node under several parents is seen once.
void collect(const std::vector<std::shared_ptr<Command>>& commands, std::set<const Command*>& seen,
             std::set<std::pair<std::size_t, std::size_t>>& uses) {
    for (const auto& node : commands) {
        if (!node || !seen.insert(node.get()).second) {
            continue;
        }
        if (const auto* group = dynamic_cast<const GroupCommand*>(node.get())) {
            collect(group->commands, seen, uses);
        } else if (const auto* draw = dynamic_cast<const DrawMeshCommand*>(node.get())) {
            if (draw->mesh && draw->mesh->id >= 0 && draw->state && draw->state->vertexAttributes) {
                const auto stride = draw->state->vertexAttributes->stride();
                if (stride > 0) {
                    uses.emplace(static_cast<std::size_t>(draw->mesh->id), static_cast<std::size_t>(stride));
                }
            }
        }
    }
}

} // namespace

void ModelLayoutCheck::run(const std::vector<std::shared_ptr<Command>>& commands,
                           const std::vector<FullModel>& models) {
    std::set<const Command*> seen;
    std::set<std::pair<std::size_t, std::size_t>> uses;
    collect(commands, seen, uses);
    for (const auto& [model, stride] : uses) {
        if (model < models.size()) {
            check(models[model], stride);
        }
    }
}

void ModelLayoutCheck::check(const FullModel& model, std::size_t stride) {
    try {
        model.checkLayout(stride);
    } catch (const std::exception& e) {
        Fatal::stop(std::string("Cannot create model buffers: ") + e.what());
    }
}

} // namespace renderer::loaders
