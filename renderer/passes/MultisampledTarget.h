#pragma once

#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderPassDescriptor.h"

namespace renderer::passes {

/// The main pass's own colour and depth target, which the pass resolves into the frame's
/// framebuffer: 4 samples at the output's size for the high quality, one sample at a smaller
/// size for the low one (then scaled up by the resolve). It is made at the first frame and made
/// anew whenever the size or the sample count asked for changes; it is released with its owner.
class MultisampledTarget {
public:
    explicit MultisampledTarget(gl::Gl& gl) : gl_(gl) {}
    ~MultisampledTarget() { release(); }
    MultisampledTarget(const MultisampledTarget&) = delete;
    MultisampledTarget& operator=(const MultisampledTarget&) = delete;

    /// Makes the target `width` by `height` with `samples` samples (1 for a single-sampled one)
    /// where it is not already, and makes it the framebuffer of `descriptor`. A target that GL
    /// cannot complete stops the process with "Cannot create MSAA texture: ...".
    void prepare(gpu::RenderPassDescriptor& descriptor, GLsizei width, GLsizei height, int samples);
    /// Deletes the target's GL objects, if any.
    void release();

    /// The colour renderbuffer, the depth renderbuffer and their framebuffer; 0 before the first frame.
    GLuint textureMsaa = 0;
    GLuint depthMsaa = 0;
    GLuint framebufferMsaa = 0;
    /// The size they were made for.
    GLsizei textureMsaaWidth = 0;
    GLsizei textureMsaaHeight = 0;
    /// The samples per pixel they were made with (1: single-sampled); 0 before the first frame.
    int sampleCount = 0;

private:
    gl::Gl& gl_;
};

} // namespace renderer::passes
