#include "renderer/passes/MultisampledTarget.h"

#include <cstdio>
#include <string>

#include "renderer/Fatal.h"
#include "renderer/SceneUtils.h"

namespace renderer::passes {

namespace {

std::string msaaError(GLsizei width, GLsizei height) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "0x%04X", SceneUtils::COLOR_FORMAT);
    return "Cannot create MSAA texture: Cannot create texture with pixelFormat " + std::string(hex) + " of size " +
           std::to_string(width) + "x" + std::to_string(height);
}

} // namespace

void MultisampledTarget::prepare(gpu::RenderPassDescriptor& descriptor, GLsizei width, GLsizei height,
                                 int samples) {
    if (textureMsaa == 0 || textureMsaaWidth != width || textureMsaaHeight != height || sampleCount != samples) {
        release();
        // GL may give a renderbuffer asked for with one sample more than one; 0 asks for a
        // single-sampled one, which a scaled blit can read from.
        const GLsizei glSamples = samples > 1 ? samples : 0;
        textureMsaa = gl_.createRenderbuffer(glSamples, SceneUtils::COLOR_FORMAT, width, height);
        depthMsaa = gl_.createRenderbuffer(glSamples, SceneUtils::DEPTH_FORMAT, width, height);
        framebufferMsaa = gl_.createFramebuffer();
        gl_.framebufferRenderbuffer(framebufferMsaa, GL_COLOR_ATTACHMENT0, textureMsaa);
        gl_.framebufferRenderbuffer(framebufferMsaa, GL_DEPTH_ATTACHMENT, depthMsaa);
        if (textureMsaa == 0 || gl_.checkFramebufferStatus(framebufferMsaa) != GL_FRAMEBUFFER_COMPLETE) {
            Fatal::stop(msaaError(width, height));
        }
        textureMsaaWidth = width;
        textureMsaaHeight = height;
        sampleCount = samples;
    }
    descriptor.framebuffer = framebufferMsaa;
}

void MultisampledTarget::release() {
    if (framebufferMsaa != 0) {
        gl_.deleteFramebuffer(framebufferMsaa);
    }
    if (textureMsaa != 0) {
        gl_.deleteRenderbuffer(textureMsaa);
    }
    if (depthMsaa != 0) {
        gl_.deleteRenderbuffer(depthMsaa);
    }
    framebufferMsaa = textureMsaa = depthMsaa = 0;
    textureMsaaWidth = textureMsaaHeight = 0;
    sampleCount = 0;
}

} // namespace renderer::passes
