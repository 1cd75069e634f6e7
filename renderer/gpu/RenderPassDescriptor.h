#pragma once

#include <array>
#include <optional>

#include "renderer/gl/Gl.h"
#include "renderer/gpu/LoadAction.h"
#include "renderer/gpu/StoreAction.h"

namespace renderer::gpu {

/// Where a pass draws and what happens to its attachments at its start and end. The pass draws
/// into `framebuffer` of `width` by `height` pixels; the colour attachment may be resolved into
/// another framebuffer at the end, of the same size or, scaled, of another.
class RenderPassDescriptor {
public:
    /// Colour attachment 0.
    struct ColorAttachment {
        LoadAction loadAction = LoadAction::DONT_CARE;
        /// Red, green, blue, alpha used by a CLEAR.
        std::array<double, 4> clearColor{0.0, 0.0, 0.0, 1.0};
        StoreAction storeAction = StoreAction::STORE;
        /// Framebuffer that MULTISAMPLE_RESOLVE copies into (0 is the default framebuffer).
        std::optional<GLuint> resolveFramebuffer;
        /// Size of the resolve target where it differs from the pass's (0: the same); the
        /// resolve then scales the pass's picture to it with linear filtering.
        GLsizei resolveWidth = 0;
        GLsizei resolveHeight = 0;
    };
    /// The depth attachment, if the pass has one.
    struct DepthAttachment {
        bool present = false;
        LoadAction loadAction = LoadAction::DONT_CARE;
        double clearDepth = 1.0;
        StoreAction storeAction = StoreAction::DONT_CARE;
    };

    GLuint framebuffer = 0;
    GLsizei width = 0;
    GLsizei height = 0;
    ColorAttachment colorAttachment;
    DepthAttachment depthAttachment;
};

} // namespace renderer::gpu
