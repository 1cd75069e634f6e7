#include "host/clock/ClockPicture.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace host::clock {

namespace {

// One dimension of a Gaussian blur of an 8-bit channel, from `src` into `dst`, `count` samples
// of `stride` apart, `lines` times `lineStride` apart.
void blurPass(const std::vector<float>& kernel, const float* src, float* dst, int count, int stride, int lines,
              int lineStride) {
    const int radius = static_cast<int>(kernel.size() / 2);
    for (int line = 0; line < lines; ++line) {
        const float* in = src + static_cast<std::ptrdiff_t>(line) * lineStride;
        float* out = dst + static_cast<std::ptrdiff_t>(line) * lineStride;
        for (int i = 0; i < count; ++i) {
            float sum = 0.0f;
            const int from = std::max(0, i - radius);
            const int until = std::min(count - 1, i + radius);
            for (int j = from; j <= until; ++j) {
                sum += kernel[static_cast<std::size_t>(j - i + radius)] * in[static_cast<std::ptrdiff_t>(j) * stride];
            }
            out[static_cast<std::ptrdiff_t>(i) * stride] = sum;
        }
    }
}

// The alpha of `image` blurred with a Gaussian of deviation `sigma`, as floats in 0..1.
std::vector<float> blurredAlpha(const QImage& image, double sigma) {
    const int w = image.width();
    const int h = image.height();
    std::vector<float> a(static_cast<std::size_t>(w) * h);
    for (int y = 0; y < h; ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < w; ++x) {
            a[static_cast<std::size_t>(y) * w + x] = static_cast<float>(qAlpha(row[x])) / 255.0f;
        }
    }
    const int radius = std::max(1, static_cast<int>(std::ceil(sigma * 3.0)));
    std::vector<float> kernel(static_cast<std::size_t>(radius) * 2 + 1);
    float total = 0.0f;
    for (int i = -radius; i <= radius; ++i) {
        const float v = static_cast<float>(std::exp(-(i * i) / (2.0 * sigma * sigma)));
        kernel[static_cast<std::size_t>(i + radius)] = v;
        total += v;
    }
    for (float& v : kernel) {
        v /= total;
    }
    std::vector<float> tmp(a.size());
    blurPass(kernel, a.data(), tmp.data(), w, 1, h, w);
    blurPass(kernel, tmp.data(), a.data(), h, w, w, 1);
    return a;
}

} // namespace

QRect ClockPicture::textRect(const QSize& viewSize, const QFont& font) {
    const QFontMetricsF metrics(font);
    const int top = static_cast<int>(std::lround(viewSize.height() * 0.2)) + kSpacing;
    const int height = static_cast<int>(std::ceil(metrics.height()));
    return QRect(0, top, viewSize.width(), height);
}

ClockPicture ClockPicture::draw(const QString& text, const QFont& font, double opacity, const QSize& viewSize,
                                qreal devicePixelRatio) {
    ClockPicture picture;
    if (text.isEmpty() || viewSize.isEmpty()) {
        return picture;
    }
    const qreal dpr = devicePixelRatio > 0 ? devicePixelRatio : 1.0;
    const QRect line = textRect(viewSize, font);
    const QFontMetricsF metrics(font);
    const double textWidth = metrics.horizontalAdvance(text);
    // The shadow spreads three deviations beyond the glyphs; the deviation is half the radius.
    const double sigma = kShadowRadius / 2.0;
    const int margin = static_cast<int>(std::ceil(sigma * 3.0)) + 2;
    const QRectF logical(line.center().x() + 0.5 - textWidth / 2.0 - margin, line.top() - margin,
                         textWidth + 2.0 * margin, line.height() + 2.0 * margin);
    const QRect device(static_cast<int>(std::floor(logical.left() * dpr)),
                       static_cast<int>(std::floor(logical.top() * dpr)),
                       static_cast<int>(std::ceil(logical.width() * dpr)),
                       static_cast<int>(std::ceil(logical.height() * dpr)));

    QImage glyphs(device.size(), QImage::Format_ARGB32_Premultiplied);
    glyphs.fill(Qt::transparent);
    {
        QPainter painter(&glyphs);
        painter.setRenderHint(QPainter::TextAntialiasing);
        painter.scale(dpr, dpr);
        painter.translate(-device.left() / dpr, -device.top() / dpr);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.setOpacity(opacity);
        painter.drawText(QRectF(line), Qt::AlignHCenter | Qt::AlignTop, text);
    }

    // The shadow is cast by the text as it is shown, opacity included, in black.
    const std::vector<float> shadow = blurredAlpha(glyphs, sigma * dpr);
    QImage result(device.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < device.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(glyphs.constScanLine(y));
        auto* out = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < device.width(); ++x) {
            const float s = shadow[static_cast<std::size_t>(y) * device.width() + x];
            // Text over shadow, premultiplied: colour = text, alpha = text + shadow * (1 - text).
            const int ta = qAlpha(in[x]);
            const float alpha = ta / 255.0f + s * (1.0f - ta / 255.0f);
            const int a = std::clamp(static_cast<int>(std::lround(alpha * 255.0f)), 0, 255);
            out[x] = qRgba(qRed(in[x]), qGreen(in[x]), qBlue(in[x]), a);
        }
    }
    picture.image = result;
    picture.topLeft = device.topLeft();
    return picture;
}

} // namespace host::clock
