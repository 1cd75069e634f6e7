#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "renderer/gl/Gl.h"
#include "renderer/gpu/CullMode.h"
#include "renderer/gpu/DepthStencilState.h"
#include "renderer/gpu/RenderPassDescriptor.h"
#include "renderer/gpu/RenderPipelineState.h"
#include "renderer/gpu/Winding.h"

namespace renderer::gpu {

/// Records one pass at a time into GL, with the vocabulary of a render command encoder: a pass
/// is opened on a descriptor (framebuffer bound, viewport set, attachments cleared as their load
/// actions say), takes pipeline, depth, cull and binding calls, draws, and is ended (resolved and
/// invalidated as the store actions say). Every call goes to GL as it comes; filtering redundant
/// calls is the caller's business, since GL keeps its state from pass to pass where a fresh
/// encoder would not.
///
/// Numbers handed to a stage slot are copied into the uniform that the pipeline's program names
/// for that slot at the moment of the call, so a later value never disturbs an earlier draw. The
/// GLSL type follows the element count: 1 to 4 a scalar or vector, 16 a mat4, any other count an
/// array of scalars.
class RenderEncoder {
public:
    /// The most elements one uniform may have.
    static constexpr std::size_t MAX_UNIFORM_ELEMENTS = 128;

    explicit RenderEncoder(gl::Gl& gl);

    /// Opens a pass on `descriptor`: binds its framebuffer, sets the viewport to its size, clears
    /// what its load actions say, and puts winding, culling and depth back to a fresh pass's
    /// defaults (clockwise, none, compare always without writes). `label` names the pass for
    /// debugging; its text must live until the next `begin`.
    void begin(const RenderPassDescriptor& descriptor, std::string_view label);
    /// Ends the open pass: resolves the colour attachment where its store action says so, and
    /// drops (invalidates) what is not stored.
    void end();
    /// Whether a pass is open.
    bool isOpen() const { return open_; }
    /// The open (or last) pass's label.
    std::string_view label() const { return label_; }
    /// The descriptor of the open (or last) pass.
    const RenderPassDescriptor& descriptor() const { return descriptor_; }

    void setFrontFacingWinding(Winding winding);
    /// Program, vertex array and blending of `pipeline`. The pipeline must outlive its use here.
    void setRenderPipelineState(const RenderPipelineState& pipeline);
    void setDepthStencilState(const DepthStencilState& state);
    void setCullMode(CullMode mode);
    /// Aims the attributes of the pipeline in use at `buffer` (vertex buffer slot 0).
    void setVertexBuffer(GLuint buffer);

    /// Numbers for vertex slot `slot`, as floats, half floats, 32-bit or 16-bit integers.
    void setVertexBytes(int slot, std::span<const float> values);
    void setVertexBytes(int slot, std::span<const std::uint16_t> halves);
    void setVertexBytes(int slot, std::span<const std::int32_t> values);
    void setVertexBytes(int slot, std::span<const std::int16_t> values);
    /// Numbers for fragment slot `slot`, likewise.
    void setFragmentBytes(int slot, std::span<const float> values);
    void setFragmentBytes(int slot, std::span<const std::uint16_t> halves);
    void setFragmentBytes(int slot, std::span<const std::int32_t> values);
    void setFragmentBytes(int slot, std::span<const std::int16_t> values);

    /// Binds `texture` to fragment texture slot `slot` (texture unit `slot`).
    void setFragmentTexture(int slot, GLuint texture);
    /// Binds `sampler` to fragment texture slot `slot`.
    void setFragmentSamplerState(int slot, GLuint sampler);
    /// Binds `texture` to vertex texture slot `slot` (texture unit 8 + `slot`).
    void setVertexTexture(int slot, GLuint texture);

    /// Draws `indexCount` 16-bit indices of `indexBuffer` from its start.
    void drawIndexedPrimitives(GLenum mode, GLsizei indexCount, GLuint indexBuffer);
    /// Draws `vertexCount` vertices from `vertexStart` without indices.
    void drawPrimitives(GLenum mode, GLint vertexStart, GLsizei vertexCount);

private:
    void floats(GLint location, std::span<const float> values);
    void ints(GLint location, std::span<const std::int32_t> values);
    GLint vertexLocation(int slot) const;
    GLint fragmentLocation(int slot) const;

    gl::Gl& gl_;
    RenderPassDescriptor descriptor_;
    std::string_view label_;
    bool open_ = false;
    /// The pipeline last set; GL keeps it in use from pass to pass.
    const RenderPipelineState* pipeline_ = nullptr;
    std::array<float, MAX_UNIFORM_ELEMENTS> floatScratch_{};
    std::array<std::int32_t, MAX_UNIFORM_ELEMENTS> intScratch_{};
};

} // namespace renderer::gpu
