#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <optional>

#include "engine/DepthMode.h"
#include "engine/Shader.h"
#include "engine/VertexAttributesDescriptor.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "renderer/passes/GaussianBlurRenderPass.h"
#include "renderer/RenderPipelineStateWithDepth.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderEncoder.h"

namespace renderer::passes {

/// Draws the result of a blur chain over the main pass as a full-screen triangle strip, mixed
/// with the blending of the DrawBlurredCommand it was made for. One quad is made per command
/// `id` and keeps the blending of the first command with that id.
class FullscreenQuad {
public:
    /// A quad for `command`; no GL object is made yet.
    FullscreenQuad(std::shared_ptr<engine::commands::DrawBlurredCommand> command, gl::Gl& gl);
    /// Deletes the vertex buffer and the sampler.
    ~FullscreenQuad();
    FullscreenQuad(const FullscreenQuad&) = delete;
    FullscreenQuad& operator=(const FullscreenQuad&) = delete;

    /// Uploads `vertices`.
    void createVertexBuffer();
    /// Builds the pipeline from the library's "FullscreenQuad" shader in `resources`, with the
    /// command's blending, for the 4-sample main pass. Without that shader the quad keeps no
    /// pipeline, and `draw` stops the process.
    void makePipeline(const std::filesystem::path& resources);
    /// Draws `texture` over the whole pass: pipeline, depth state, quad at vertex slot 0,
    /// texture at fragment slot 0, four strip vertices. The cull mode is left as it stands.
    void draw(GLuint texture, gpu::RenderEncoder& encoder);

    std::array<float, 16> vertices = GaussianBlurRenderPass::VERTICES;
    gl::Gl& gl;
    std::shared_ptr<engine::commands::DrawBlurredCommand> command;
    GLuint vertexBuffer = 0;
    std::optional<RenderPipelineStateWithDepth> pipelineStateWithDepth;
    /// Named "FullscreenQuad" when the pipeline is made.
    std::shared_ptr<engine::Shader> FS_SHADER;
    /// Neither test nor write.
    std::shared_ptr<engine::DepthMode> FS_DEPTH;
    /// x, y as FLOAT2 at 0, u, v as FLOAT2 at 8, stride 16.
    std::shared_ptr<engine::VertexAttributesDescriptor> FS_ATTRIBS;
    /// Linear, clamped sampling of the blurred image: the quad's own, whatever a draw left on
    /// the unit.
    GLuint sampler = 0;
};

} // namespace renderer::passes
