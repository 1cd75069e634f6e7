#pragma once

#include <cstdint>
#include <vector>

namespace engine::camera {

/// A cubic spline through evenly spaced samples of one coordinate, in double precision. The
/// path parameter 0..1 runs from sample 2 to sample N-2: the two extra samples at each end
/// only shape the curve. With prepared ends a closed loop whose first four samples are
/// repeated at its end closes smoothly.
class Spline {
public:
    /// The samples, as given to the constructor and with its ends prepared when asked for.
    std::vector<double> y;
    /// Second-derivative coefficients, one per sample.
    std::vector<double> c;

    /// As Spline(y, true).
    explicit Spline(std::vector<double> y);

    /// Builds the coefficients. When `bPrepareEnds` and there are more than 3 samples, the
    /// ends are wrapped first: y[0] = y[N-4], y[1] = y[N-3], y[N-2] = y[2], y[N-1] = y[3].
    Spline(std::vector<double> y, bool bPrepareEnds);

    /// The larger of `low` and the smaller of `i` and `high`; NaN gives NaN.
    static double clamp(double i, double low, double high);

    /// Value on the segment that starts at sample `n`, `t` running from 0 (y[n]) to 1 (y[n+1]);
    /// throws std::out_of_range beyond the samples.
    double fn(std::int32_t n, double t) const;

    /// Value at the path parameter `m`, clamped to 0..1; throws std::out_of_range for fewer
    /// than 3 samples.
    double getCurrentPoint(double m) const;

    /// Treats the first four elements of `xA` and of `y` as two cubic Bezier curves sharing one
    /// parameter: finds the parameter at which the x curve reaches `trueX` and returns the y
    /// curve there. Throws std::out_of_range when either has fewer than four elements.
    double xySplineFn(const std::vector<double>& xA, double trueX) const;
};

} // namespace engine::camera
