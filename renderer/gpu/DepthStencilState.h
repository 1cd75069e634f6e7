#pragma once

#include <epoxy/gl.h>

namespace renderer::gpu {

/// The depth part of a draw's state: the comparison (GL_LESS when the draw tests depth,
/// GL_ALWAYS when it does not) and whether it writes depth. Depth testing itself stays on, so
/// that a draw can write depth without testing it. Each pipeline cache entry owns its own object,
/// and the renderer compares them by identity.
class DepthStencilState {
public:
    GLenum depthCompareFunction = GL_ALWAYS;
    bool depthWriteEnabled = false;

    DepthStencilState(GLenum depthCompareFunction_, bool depthWriteEnabled_)
        : depthCompareFunction(depthCompareFunction_), depthWriteEnabled(depthWriteEnabled_) {}
};

} // namespace renderer::gpu
