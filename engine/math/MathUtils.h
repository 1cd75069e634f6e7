#pragma once

#include "engine/math/Vec3.h"

namespace engine::math {

/// Scalar helpers of the engine: clamps, smooth steps, angles between points and the choice of
/// a new random index.
class MathUtils {
public:
    MathUtils() = delete;

    /// The larger of `low` and the smaller of `i` and `high`; NaN in gives NaN out; `low` wins
    /// when it is above `high`.
    static float clamp(float i, float low, float high);
    /// Hermite smooth step of `x` between the two edges.
    static float smoothstep(float edge0, float edge1, float x);
    /// Quintic smooth step of `x` between the two edges.
    static float smootherstep(float edge0, float edge1, float x);
    /// Angles in radians of the difference start - end in the three planes; writes and returns `result`.
    static Vec3& angleBetweenPoints(const Vec3& start, const Vec3& end, Vec3& result);
    /// A new index into a list of `length` entries that is never `current` (for lengths above 1),
    /// drawn from the process-wide random source; throws std::domain_error for a length of 0.
    static int nextRandomLength(int length, int current);
};

} // namespace engine::math
