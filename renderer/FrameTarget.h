#pragma once

#include "renderer/gl/Gl.h"

namespace renderer {

/// What one frame draws into: the framebuffer that the main pass resolves into (0 for the
/// window's default framebuffer, or an offscreen one for headless use) and the drawable's size
/// in pixels as the host measures it. A size whose whole-number parts do not fit a 32-bit
/// integer leaves the scene's viewport alone; a size below one pixel has nothing to draw on.
/// The framebuffer's colour format must be RGBA8, the format of the multisampled target that is
/// resolved into it.
struct FrameTarget {
    GLuint framebuffer = 0;
    double width = 0.0;
    double height = 0.0;
};

} // namespace renderer
