#pragma once

#include <QSize>

namespace host::view {

/// Where the frame driver draws: a surface with an OpenGL 3.3 core context, whichever window
/// system it lives on (a Qt GL window on X11, an EGL window on a Wayland layer surface).
class DrawingSurface {
public:
    virtual ~DrawingSurface() = default;

    /// Makes the surface's context current on it (or current without a surface, when the
    /// surface is not made yet, so that GL objects can be made and freed); false on failure.
    virtual bool makeCurrent() = 0;
    /// Whether the OpenGL context is 3.3 core or newer (checked once, after `makeCurrent`).
    virtual bool hasRequiredVersion() const = 0;
    /// Whether a frame drawn now would be seen (mapped, configured, exposed).
    virtual bool canDraw() const = 0;
    /// The drawable's size in device pixels.
    virtual QSize pixelSize() const = 0;
    /// Device pixels per logical pixel (the clock's picture is drawn at this scale).
    virtual double devicePixelRatio() const = 0;
    /// The framebuffer that presents, as the context names it.
    virtual unsigned framebuffer() const = 0;
    /// Hands the drawn frame to the window system.
    virtual void present() = 0;
};

} // namespace host::view
