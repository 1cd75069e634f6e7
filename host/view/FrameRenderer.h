#pragma once

#include "engine/utils/TimeOfDay.h"
#include "renderer/RenderQuality.h"

namespace host::view {

/// A scene's renderer as the drawing view drives it. It lives from the view's appearing until
/// the view makes the next one, and every call comes with the view's GL context current.
class FrameRenderer {
public:
    virtual ~FrameRenderer() = default;

    /// Draws one frame into `framebuffer` (the window's default framebuffer), a drawable of
    /// `width` by `height` pixels; the scene is told of a size that changed.
    virtual void drawFrame(unsigned framebuffer, int width, int height) = 0;

    /// Reads the wall clock and gives the scene the time of day that it now means.
    virtual void updateDynamicTimeOfDay() = 0;

    /// Takes the user's choice of time of day and applies it to the scene at once.
    virtual void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) = 0;

    /// Takes the user's choice of quality; the next frame is drawn in it.
    virtual void setQuality(renderer::RenderQuality quality) = 0;
};

} // namespace host::view
