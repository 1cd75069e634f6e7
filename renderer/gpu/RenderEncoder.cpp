#include "renderer/gpu/RenderEncoder.h"

#include <algorithm>

#include "renderer/loaders/HalfFloat.h"

namespace renderer::gpu {

RenderEncoder::RenderEncoder(gl::Gl& gl) : gl_(gl) {}

void RenderEncoder::begin(const RenderPassDescriptor& descriptor, std::string_view label) {
    descriptor_ = descriptor;
    label_ = label;
    open_ = true;
    gl_.bindFramebuffer(GL_FRAMEBUFFER, descriptor.framebuffer);
    gl_.viewport(0, 0, descriptor.width, descriptor.height);
    // A host sharing the context may leave these on; a pass draws its whole target.
    gl_.disable(GL_SCISSOR_TEST);
    gl_.disable(GL_STENCIL_TEST);

    GLbitfield mask = 0;
    if (descriptor.colorAttachment.loadAction == LoadAction::CLEAR) {
        const auto& c = descriptor.colorAttachment.clearColor;
        gl_.clearColor(static_cast<GLfloat>(c[0]), static_cast<GLfloat>(c[1]), static_cast<GLfloat>(c[2]),
                       static_cast<GLfloat>(c[3]));
        mask |= GL_COLOR_BUFFER_BIT;
    }
    if (descriptor.depthAttachment.present && descriptor.depthAttachment.loadAction == LoadAction::CLEAR) {
        gl_.clearDepth(descriptor.depthAttachment.clearDepth);
        gl_.depthMask(true); // a clear obeys the depth write mask
        mask |= GL_DEPTH_BUFFER_BIT;
    }
    if (mask != 0) {
        gl_.clear(mask);
    }

    // A new pass starts from the defaults of a fresh encoder: clockwise front faces, no culling,
    // depth compared with "always" and not written. The pipeline and the bindings stay as GL
    // keeps them.
    gl_.enable(GL_DEPTH_TEST);
    gl_.depthFunc(GL_ALWAYS);
    gl_.depthMask(false);
    gl_.disable(GL_CULL_FACE);
    gl_.frontFace(GL_CW);
}

void RenderEncoder::end() {
    if (!open_) {
        return;
    }
    open_ = false;
    std::array<GLenum, 2> dropped{};
    std::size_t droppedCount = 0;
    const auto& color = descriptor_.colorAttachment;
    if (color.storeAction == StoreAction::MULTISAMPLE_RESOLVE && color.resolveFramebuffer) {
        gl_.bindFramebuffer(GL_READ_FRAMEBUFFER, descriptor_.framebuffer);
        gl_.bindFramebuffer(GL_DRAW_FRAMEBUFFER, *color.resolveFramebuffer);
        const GLsizei width = color.resolveWidth > 0 ? color.resolveWidth : descriptor_.width;
        const GLsizei height = color.resolveHeight > 0 ? color.resolveHeight : descriptor_.height;
        const bool scaled = width != descriptor_.width || height != descriptor_.height;
        gl_.blitFramebuffer(0, 0, descriptor_.width, descriptor_.height, 0, 0, width, height, GL_COLOR_BUFFER_BIT,
                            scaled ? GL_LINEAR : GL_NEAREST);
        gl_.bindFramebuffer(GL_READ_FRAMEBUFFER, descriptor_.framebuffer);
    }
    if (color.storeAction != StoreAction::STORE && descriptor_.framebuffer != 0) {
        dropped[droppedCount++] = GL_COLOR_ATTACHMENT0;
    }
    const auto& depth = descriptor_.depthAttachment;
    if (depth.present && depth.storeAction != StoreAction::STORE && descriptor_.framebuffer != 0) {
        dropped[droppedCount++] = GL_DEPTH_ATTACHMENT;
    }
    if (droppedCount > 0) {
        gl_.invalidateFramebuffer(GL_READ_FRAMEBUFFER, std::span<const GLenum>(dropped.data(), droppedCount));
    }
}

void RenderEncoder::setFrontFacingWinding(Winding winding) {
    gl_.frontFace(winding == Winding::CLOCKWISE ? GL_CW : GL_CCW);
}

void RenderEncoder::setRenderPipelineState(const RenderPipelineState& pipeline) {
    pipeline_ = &pipeline;
    gl_.useProgram(pipeline.program().name());
    gl_.bindVertexArray(pipeline.vertexArray());
    const BlendState& blend = pipeline.blend();
    if (blend.enabled) {
        gl_.enable(GL_BLEND);
        gl_.blendEquationSeparate(blend.rgbOperation, blend.alphaOperation);
        gl_.blendFuncSeparate(blend.sourceRGBFactor, blend.destinationRGBFactor, blend.sourceAlphaFactor,
                              blend.destinationAlphaFactor);
    } else {
        gl_.disable(GL_BLEND);
    }
}

void RenderEncoder::setDepthStencilState(const DepthStencilState& state) {
    gl_.depthFunc(state.depthCompareFunction);
    gl_.depthMask(state.depthWriteEnabled);
}

void RenderEncoder::setCullMode(CullMode mode) {
    if (mode == CullMode::NONE) {
        gl_.disable(GL_CULL_FACE);
    } else {
        gl_.enable(GL_CULL_FACE);
        gl_.cullFace(mode == CullMode::FRONT ? GL_FRONT : GL_BACK);
    }
}

void RenderEncoder::setVertexBuffer(GLuint buffer) {
    gl_.bindBuffer(GL_ARRAY_BUFFER, buffer);
    if (pipeline_ == nullptr || !pipeline_->vertexLayout()) {
        return;
    }
    const VertexLayout& layout = *pipeline_->vertexLayout();
    for (const auto& attribute : layout.attributes) {
        if (attribute.integer) {
            gl_.vertexAttribIPointer(attribute.location, attribute.size, attribute.type, layout.stride,
                                     attribute.offset);
        } else {
            gl_.vertexAttribPointer(attribute.location, attribute.size, attribute.type, attribute.normalized,
                                    layout.stride, attribute.offset);
        }
    }
}

GLint RenderEncoder::vertexLocation(int slot) const {
    return pipeline_ != nullptr ? pipeline_->program().vertexUniform(slot) : -1;
}

GLint RenderEncoder::fragmentLocation(int slot) const {
    return pipeline_ != nullptr ? pipeline_->program().fragmentUniform(slot) : -1;
}

void RenderEncoder::floats(GLint location, std::span<const float> values) {
    const auto n = static_cast<GLsizei>(values.size());
    if (n == 0) {
        return;
    }
    if (n <= 4) {
        gl_.uniformFloats(location, n, 1, values.data());
    } else if (n == 16) {
        gl_.uniformFloats(location, 16, 1, values.data());
    } else {
        gl_.uniformFloats(location, 1, n, values.data());
    }
}

void RenderEncoder::ints(GLint location, std::span<const std::int32_t> values) {
    const auto n = static_cast<GLsizei>(values.size());
    if (n == 0) {
        return;
    }
    if (n <= 4) {
        gl_.uniformInts(location, n, 1, values.data());
    } else {
        gl_.uniformInts(location, 1, n, values.data());
    }
}

void RenderEncoder::setVertexBytes(int slot, std::span<const float> values) { floats(vertexLocation(slot), values); }

void RenderEncoder::setVertexBytes(int slot, std::span<const std::uint16_t> halves) {
    const std::size_t n = std::min(halves.size(), MAX_UNIFORM_ELEMENTS);
    for (std::size_t i = 0; i < n; ++i) {
        floatScratch_[i] = loaders::HalfFloat::toFloat(halves[i]);
    }
    floats(vertexLocation(slot), std::span<const float>(floatScratch_.data(), n));
}

void RenderEncoder::setVertexBytes(int slot, std::span<const std::int32_t> values) {
    ints(vertexLocation(slot), values);
}

void RenderEncoder::setVertexBytes(int slot, std::span<const std::int16_t> values) {
    const std::size_t n = std::min(values.size(), MAX_UNIFORM_ELEMENTS);
    std::copy_n(values.begin(), n, intScratch_.begin());
    ints(vertexLocation(slot), std::span<const std::int32_t>(intScratch_.data(), n));
}

void RenderEncoder::setFragmentBytes(int slot, std::span<const float> values) {
    floats(fragmentLocation(slot), values);
}

void RenderEncoder::setFragmentBytes(int slot, std::span<const std::uint16_t> halves) {
    const std::size_t n = std::min(halves.size(), MAX_UNIFORM_ELEMENTS);
    for (std::size_t i = 0; i < n; ++i) {
        floatScratch_[i] = loaders::HalfFloat::toFloat(halves[i]);
    }
    floats(fragmentLocation(slot), std::span<const float>(floatScratch_.data(), n));
}

void RenderEncoder::setFragmentBytes(int slot, std::span<const std::int32_t> values) {
    ints(fragmentLocation(slot), values);
}

void RenderEncoder::setFragmentBytes(int slot, std::span<const std::int16_t> values) {
    const std::size_t n = std::min(values.size(), MAX_UNIFORM_ELEMENTS);
    std::copy_n(values.begin(), n, intScratch_.begin());
    ints(fragmentLocation(slot), std::span<const std::int32_t>(intScratch_.data(), n));
}

void RenderEncoder::setFragmentTexture(int slot, GLuint texture) {
    gl_.bindTexture(static_cast<GLuint>(slot), texture);
}

void RenderEncoder::setFragmentSamplerState(int slot, GLuint sampler) {
    gl_.bindSampler(static_cast<GLuint>(slot), sampler);
}

void RenderEncoder::setVertexTexture(int slot, GLuint texture) {
    gl_.bindTexture(ShaderProgram::VERTEX_TEXTURE_UNIT_BASE + static_cast<GLuint>(slot), texture);
}

void RenderEncoder::drawIndexedPrimitives(GLenum mode, GLsizei indexCount, GLuint indexBuffer) {
    gl_.bindBuffer(GL_ELEMENT_ARRAY_BUFFER, indexBuffer);
    gl_.drawElements(mode, indexCount, GL_UNSIGNED_SHORT, 0);
}

void RenderEncoder::drawPrimitives(GLenum mode, GLint vertexStart, GLsizei vertexCount) {
    gl_.drawArrays(mode, vertexStart, vertexCount);
}

} // namespace renderer::gpu
