#pragma once

#include <memory>
#include <optional>
#include <string>

#include "renderer/gl/Gl.h"
#include "renderer/gpu/BlendState.h"
#include "renderer/gpu/ShaderProgram.h"
#include "renderer/gpu/VertexLayout.h"

namespace renderer::gpu {

/// What a pipeline fixes for its draws: the program, the vertex layout (held in a vertex array
/// of its own, whose attribute pointers each draw aims at its vertex buffer), the blending, and,
/// for the record, the sample count and whether it draws with a depth attachment.
class RenderPipelineState {
public:
    /// Creates the vertex array of `layout` (none for a pipeline without a layout, whose shader
    /// finds its vertices by other means). Leaves that vertex array bound.
    RenderPipelineState(gl::Gl& gl, std::shared_ptr<ShaderProgram> program, std::optional<VertexLayout> layout,
                        BlendState blend, int sampleCount, bool depthAttachment, std::string label);
    /// Deletes the vertex array; the program goes with its last pipeline.
    ~RenderPipelineState();
    RenderPipelineState(const RenderPipelineState&) = delete;
    RenderPipelineState& operator=(const RenderPipelineState&) = delete;

    const ShaderProgram& program() const { return *program_; }
    GLuint vertexArray() const { return vertexArray_; }
    const std::optional<VertexLayout>& vertexLayout() const { return layout_; }
    const BlendState& blend() const { return blend_; }
    int sampleCount() const { return sampleCount_; }
    bool depthAttachment() const { return depthAttachment_; }
    const std::string& label() const { return label_; }

private:
    gl::Gl& gl_;
    std::shared_ptr<ShaderProgram> program_;
    std::optional<VertexLayout> layout_;
    BlendState blend_;
    int sampleCount_;
    bool depthAttachment_;
    std::string label_;
    GLuint vertexArray_ = 0;
};

} // namespace renderer::gpu
