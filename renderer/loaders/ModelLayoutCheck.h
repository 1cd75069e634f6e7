#pragma once

#include <memory>
#include <vector>

#include "engine/commands/Command.h"
#include "renderer/loaders/FullModel.h"

namespace renderer::loaders {

/// Holds each loaded model, once at load, against the vertex layouts of the draws that use it:
/// the stride of a draw's state gives the model's vertex count, and an index past it would make
/// the GPU read outside the vertex buffer (undefined on a driver without robust access), so it
/// stops the process before the first frame instead.
class ModelLayoutCheck {
public:
    ModelLayoutCheck() = delete;

    /// Walks `commands` (every node, enabled or not, each once) and checks the model of each
    /// mesh draw, found by the mesh's `id` in `models`, against its state's stride. Stops the
    /// process with "Cannot create model buffers: ", the file's path inside the resources and
    /// the reason at the first model that fails.
    static void run(const std::vector<std::shared_ptr<engine::commands::Command>>& commands,
                    const std::vector<FullModel>& models);

    /// Checks one model against `stride`, with the same stop.
    static void check(const FullModel& model, std::size_t stride);
};

} // namespace renderer::loaders
