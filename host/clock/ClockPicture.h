#pragma once

#include <QFont>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

namespace host::clock {

/// The clock as a picture to lay over the frame: white text at the chosen opacity with a soft
/// black shadow, centred across the view, its top a fifth of the way down (plus the stack's
/// spacing). It is made once per change of text or style, not per frame.
class ClockPicture {
public:
    /// The space between the top spacer and the text, in device-independent pixels.
    static constexpr int kSpacing = 8;
    /// The radius of the shadow's blur, in device-independent pixels.
    static constexpr double kShadowRadius = 10.0;

    /// The picture: premultiplied ARGB in device pixels, and where its top-left corner goes in
    /// the view, in device pixels. A null image when there is nothing to draw.
    QImage image;
    QPoint topLeft;

    /// Where the text's line box lies in a view of `viewSize` (device-independent pixels): the
    /// whole width, one line of `font` high, below the top spacer.
    static QRect textRect(const QSize& viewSize, const QFont& font);

    /// Draws `text` for a view of `viewSize` device-independent pixels shown at
    /// `devicePixelRatio`. Empty text gives a null picture.
    static ClockPicture draw(const QString& text, const QFont& font, double opacity, const QSize& viewSize,
                             qreal devicePixelRatio);
};

} // namespace host::clock
