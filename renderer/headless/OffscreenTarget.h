#pragma once

#include <cstdint>
#include <vector>

namespace renderer::headless {

/// A single-sampled framebuffer object of the headless renderer: an RGBA8 colour texture, the
/// picture that a frame resolves into and that is read back afterwards, and a 32-bit float
/// depth buffer for callers that draw into it directly. Needs a current GL context
/// (`HeadlessContext`) for its whole life.
class OffscreenTarget {
public:
    /// Creates the framebuffer of `width` by `height` pixels. Throws std::invalid_argument for
    /// a size below 1 or above the driver's limit, std::runtime_error if the framebuffer is
    /// incomplete.
    OffscreenTarget(int width, int height);
    /// Deletes the GL objects.
    ~OffscreenTarget();

    OffscreenTarget(const OffscreenTarget&) = delete;
    OffscreenTarget& operator=(const OffscreenTarget&) = delete;

    int width() const { return width_; }
    int height() const { return height_; }
    /// The GL name of the framebuffer object, to bind as the draw target of a frame.
    unsigned framebuffer() const { return framebuffer_; }
    /// The GL name of the colour texture.
    unsigned colorTexture() const { return colorTexture_; }
    /// Binds the framebuffer for drawing and reading and sets the viewport to its size.
    void bind() const;
    /// Clears the colour to (`red`, `green`, `blue`, `alpha`) and the depth to 1, leaving the
    /// framebuffer bound as `bind` does.
    void clear(float red, float green, float blue, float alpha) const;
    /// Waits for the GPU and reads the colour texture back: `width` * `height` RGBA8 pixels,
    /// rows from top to bottom (as images are stored, not as GL counts them).
    std::vector<std::uint8_t> readPixels() const;

private:
    int width_;
    int height_;
    unsigned framebuffer_ = 0;
    unsigned colorTexture_ = 0;
    unsigned depthBuffer_ = 0;
};

} // namespace renderer::headless
