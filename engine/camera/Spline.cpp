#include "engine/camera/Spline.h"

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace engine::camera {

namespace {

// floor(p) as a 32-bit index: NaN gives 0 and out-of-range values saturate, so a wild
// parameter ends in an index error rather than in undefined behaviour.
std::int32_t floorToInt(double p) {
    if (std::isnan(p)) {
        return 0;
    }
    const double f = std::floor(p);
    if (f >= 2147483647.0) {
        return std::numeric_limits<std::int32_t>::max();
    }
    if (f <= -2147483648.0) {
        return std::numeric_limits<std::int32_t>::min();
    }
    return static_cast<std::int32_t>(f);
}

} // namespace

Spline::Spline(std::vector<double> y) : Spline(std::move(y), true) {}

Spline::Spline(std::vector<double> samples, bool bPrepareEnds) : y(std::move(samples)) {
    const std::size_t n = y.size();
    if (bPrepareEnds && n > 3) {
        y[0] = y[n - 4];
        y[1] = y[n - 3];
        y[n - 2] = y[2];
        y[n - 1] = y[3];
    }
    c.assign(n, 0.0);
    std::vector<double> w(n, 0.0);
    for (std::size_t j = 1; j + 1 < n; ++j) {
        c[j] = -1.0 / (c[j - 1] + 4.0);
        w[j] = ((y[j + 1] - 2.0 * y[j] + y[j - 1]) * 6.0 - w[j - 1]) / (c[j - 1] + 4.0);
    }
    if (n >= 2) {
        for (std::size_t j = n - 1; j-- > 0;) {
            c[j] = c[j] * c[j + 1] + w[j];
        }
    }
}

double Spline::clamp(double i, double low, double high) {
    if (std::isnan(i) || std::isnan(low) || std::isnan(high)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    const double upper = i < high ? i : high;
    return low > upper ? low : upper;
}

double Spline::fn(std::int32_t n, double t) const {
    if (n < 0 || static_cast<std::size_t>(n) + 1 >= y.size() || static_cast<std::size_t>(n) + 1 >= c.size()) {
        throw std::out_of_range("Spline segment " + std::to_string(n) + " out of range for " +
                                std::to_string(y.size()) + " samples");
    }
    const auto i = static_cast<std::size_t>(n);
    return y[i] + (y[i + 1] * t + ((t - 1.0) * t * ((t - 2.0) * c[i] - (t + 1.0) * c[i + 1])) / -6.0) -
           y[i] * t;
}

double Spline::getCurrentPoint(double m) const {
    const double x = clamp(m, 0.0, 1.0);
    if (x == 0.0) {
        return y.at(2);
    }
    if (x == 1.0) {
        return y.at(y.size() - 2);
    }
    const double p = x * (static_cast<double>(y.size()) - 4.0) + 2.0;
    const std::int32_t n = floorToInt(p);
    return fn(n, p - n);
}

double Spline::xySplineFn(const std::vector<double>& xA, double trueX) const {
    const double x0 = xA.at(0), x1 = xA.at(1), x2 = xA.at(2), x3 = xA.at(3);
    const double y0 = y.at(0), y1 = y.at(1), y2 = y.at(2), y3 = y.at(3);
    auto bezier = [](double a, double b, double c, double d, double u) {
        const double v = 1.0 - u;
        return v * v * v * a + 3.0 * u * v * v * b + 3.0 * u * u * v * c + u * u * u * d;
    };
    // The start is the parameter of `trueX` on a straight x curve over four knots one apart;
    // each step corrects it by the remaining x distance scaled to the curve's span, half way.
    const double span = x3 - x0;
    double u = trueX / 3.0 + 0.3333333333;
    if (span != 0.0) {
        for (int step = 0; step < 64; ++step) {
            const double found = u + (trueX - bezier(x0, x1, x2, x3, u)) / span;
            u += (found - u) * 0.5;
        }
    }
    return bezier(y0, y1, y2, y3, u);
}

} // namespace engine::camera
