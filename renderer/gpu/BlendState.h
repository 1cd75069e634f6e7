#pragma once

#include <epoxy/gl.h>

namespace renderer::gpu {

/// Colour attachment blending of a pipeline, in GL terms. The operations and factors are set
/// also when blending is off, as the pipeline was described.
class BlendState {
public:
    bool enabled = false;
    GLenum rgbOperation = GL_FUNC_ADD;
    GLenum alphaOperation = GL_FUNC_ADD;
    GLenum sourceRGBFactor = GL_ONE;
    GLenum destinationRGBFactor = GL_ZERO;
    GLenum sourceAlphaFactor = GL_ONE;
    GLenum destinationAlphaFactor = GL_ZERO;

    bool operator==(const BlendState&) const = default;
};

} // namespace renderer::gpu
