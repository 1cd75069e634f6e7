#pragma once

#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderPassDescriptor.h"

namespace renderer::passes {

/// The main pass's own 4-sample colour and depth target, which the pass resolves into the
/// frame's framebuffer. It is made at the first frame and made anew whenever the drawable's size
/// changes; it is released with its owner.
class MultisampledTarget {
public:
    explicit MultisampledTarget(gl::Gl& gl) : gl_(gl) {}
    ~MultisampledTarget() { release(); }
    MultisampledTarget(const MultisampledTarget&) = delete;
    MultisampledTarget& operator=(const MultisampledTarget&) = delete;

    /// Makes the target `width` by `height` where it is not already, and makes it the framebuffer
    /// of `descriptor`. A target that GL cannot complete stops the process with "Cannot create
    /// MSAA texture: ...".
    void prepare(gpu::RenderPassDescriptor& descriptor, GLsizei width, GLsizei height);
    /// Deletes the target's GL objects, if any.
    void release();

    /// The colour renderbuffer, the depth renderbuffer and their framebuffer; 0 before the first frame.
    GLuint textureMsaa = 0;
    GLuint depthMsaa = 0;
    GLuint framebufferMsaa = 0;
    /// The size they were made for.
    GLsizei textureMsaaWidth = 0;
    GLsizei textureMsaaHeight = 0;

private:
    gl::Gl& gl_;
};

} // namespace renderer::passes
