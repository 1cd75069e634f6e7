#pragma once

#include <QSize>

namespace host::wayland {

/// How many buffer pixels a surface has per logical pixel, in 120ths as the fractional-scale
/// protocol counts them (120 is 1, 180 is 1.5, 240 is 2). An integer scale is shown by the
/// surface's buffer scale; any other needs a viewport that maps the buffer onto the logical size.
class SurfaceScale {
public:
    /// The denominator of every scale.
    static constexpr int kDenominator = 120;

    /// A whole factor (the monitor's or the surface's preferred buffer scale); 1 below 1.
    static SurfaceScale whole(int factor);
    /// A scale of `numerator`/120, as the compositor prefers it; 1 when zero or negative.
    static SurfaceScale fractional(int numerator);

    /// The scale in 120ths.
    int numerator() const { return numerator_; }
    /// Buffer pixels per logical pixel, for the renderer and the clock's point sizes.
    double ratio() const { return static_cast<double>(numerator_) / kDenominator; }
    /// The factor for wl_surface.set_buffer_scale when no viewport is used: the scale rounded
    /// up, so that a buffer is never drawn smaller than shown.
    int bufferScale() const { return (numerator_ + kDenominator - 1) / kDenominator; }
    /// The buffer size for a surface of `logical` size: each side times the scale, rounded to the
    /// nearest pixel (halves away from zero), as the compositor expects of a fractional buffer.
    QSize bufferSize(QSize logical) const;

    bool operator==(const SurfaceScale&) const = default;

private:
    explicit SurfaceScale(int numerator) : numerator_(numerator) {}

    int numerator_;
};

} // namespace host::wayland
