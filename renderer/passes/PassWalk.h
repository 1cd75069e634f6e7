#pragma once

#include "engine/Scene.h"
#include "renderer/FrameTarget.h"
#include "renderer/gpu/RenderEncoder.h"
#include "renderer/gpu/RenderPassDescriptor.h"

namespace renderer {
class SceneRenderer;
}

namespace renderer::passes {

/// The three walks over a scene's command tree, each dispatching on the node's `type()`. A
/// disabled node hides itself and all below it from every walk; groups and passes of any kind
/// are gone through in list order. What the commands do is the renderer's: the walks only say
/// which command runs when.
class PassWalk {
public:
    explicit PassWalk(SceneRenderer& renderer) : renderer_(renderer) {}

    /// Runs the main and blurred passes of `commands` in tree order, at any depth of plain
    /// groups; everything else at this level is passed over.
    void process(const engine::Scene::CommandList& commands, const FrameTarget& target);
    /// Gathers the clear colour and the clears of a pass into `descriptor` before it opens: a
    /// ClearColorCommand sets the renderer's `clearColor` for good and the descriptor's colour; a
    /// ClearCommand raises the load actions it names to clear, never back.
    void prepare(const engine::Scene::CommandList& commands, gpu::RenderPassDescriptor& descriptor);
    /// Draws the meshes, vignettes and blurred quads of a pass; a pass inside a pass is a plain
    /// group of the outer one, and clears, no-ops and commands of a scene's own are passed over.
    void encode(const engine::Scene::CommandList& commands, gpu::RenderPassDescriptor& descriptor,
                gpu::RenderEncoder& encoder);

private:
    SceneRenderer& renderer_;
};

} // namespace renderer::passes
