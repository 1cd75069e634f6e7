#include "renderer/gpu/RenderPipelineState.h"

namespace renderer::gpu {

RenderPipelineState::RenderPipelineState(gl::Gl& gl, std::shared_ptr<ShaderProgram> program,
                                         std::optional<VertexLayout> layout, BlendState blend, int sampleCount,
                                         bool depthAttachment, std::string label)
    : gl_(gl), program_(std::move(program)), layout_(std::move(layout)), blend_(blend), sampleCount_(sampleCount),
      depthAttachment_(depthAttachment), label_(std::move(label)) {
    vertexArray_ = gl_.createVertexArray();
    gl_.bindVertexArray(vertexArray_);
    if (layout_) {
        for (const auto& attribute : layout_->attributes) {
            gl_.enableVertexAttribArray(attribute.location);
        }
    }
}

RenderPipelineState::~RenderPipelineState() { gl_.deleteVertexArray(vertexArray_); }

} // namespace renderer::gpu
