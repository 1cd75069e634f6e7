#pragma once

#include <QImage>
#include <QPoint>

#include <memory>

namespace host::view {

/// Lays the clock's picture over the drawn frame, as one textured quad blended on top. It draws
/// through libepoxy on whatever OpenGL 3.3 context is current, as the renderer does, so it works
/// the same under Qt's GL window and under a plain EGL surface.
///
/// The picture is uploaded when it changes (once a second at most); each frame only draws the
/// quad, allocating nothing. The renderer keeps GL state from frame to frame and skips what it
/// believes is already set, so every piece of state the overlay touches is read before and put
/// back after.
class ClockOverlay {
public:
    ClockOverlay();
    ~ClockOverlay();
    ClockOverlay(const ClockOverlay&) = delete;
    ClockOverlay& operator=(const ClockOverlay&) = delete;

    /// Takes a new picture (premultiplied ARGB, device pixels) whose top-left corner goes at
    /// `topLeft` of the framebuffer, counted from its top. A null image shows nothing. Needs the
    /// context current.
    void setPicture(const QImage& image, const QPoint& topLeft);

    /// Whether there is a picture to draw.
    bool hasPicture() const { return width_ > 0 && height_ > 0; }

    /// Draws the picture into `framebuffer` of `width` by `height` pixels.
    void draw(unsigned framebuffer, int width, int height);

    /// Frees the GL objects; the context that made them must be current.
    void release();

private:
    void create();

    unsigned program_ = 0;
    unsigned vertexArray_ = 0;
    unsigned texture_ = 0;
    int rectLocation_ = -1;
    int textureLocation_ = -1;
    int width_ = 0;
    int height_ = 0;
    QPoint topLeft_;
};

} // namespace host::view
