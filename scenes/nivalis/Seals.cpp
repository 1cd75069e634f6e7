#include "scenes/nivalis/Seals.h"

#include <memory>

namespace scenes::nivalis {

namespace {

AnimatedObjectInfo lying(float x, float y, float rotationZ, float scale, float animTimerOffset) {
    return AnimatedObjectInfo(scale, animTimerOffset, {x, y, 163.703f}, {0.0f, 0.0f, rotationZ});
}

/// A closed walk: the eight points followed by the first four again.
SplineAnimatedObjectInfo walking(float scale, float animTimerOffset, std::vector<double> x, std::vector<double> y) {
    const std::vector<double> headX(x.begin(), x.begin() + 4);
    const std::vector<double> headY(y.begin(), y.begin() + 4);
    x.insert(x.end(), headX.begin(), headX.end());
    y.insert(y.end(), headY.begin(), headY.end());
    std::vector<double> z(x.size(), 204.81567);
    return SplineAnimatedObjectInfo(scale, animTimerOffset,
                                    std::make_shared<engine::camera::Spline3D>(true, x, y, z));
}

} // namespace

Seals::Seals() {
    IDLE = {
        lying(-10197.612f, -11412.881f, 305.0f, 21.6f, 0.1f), lying(-11490.098f, -10868.786f, 180.0f, 21.0f, 0.2f),
        lying(-12481.07f, -9990.127f, 40.0f, 24.0f, 0.0f),    lying(-8848.467f, -10551.67f, 270.0f, 23.0f, 0.66f),
        lying(-11421.474f, -8197.367f, 155.0f, 22.0f, 0.3f),  lying(-9098.065f, -9784.568f, 180.0f, 21.0f, 0.7f),
        lying(-8929.758f, -9630.826f, 260.0f, 20.0f, 0.2f),   lying(-9159.626f, -9498.492f, 25.0f, 22.0f, 0.4f),
    };
    WALKING = {
        walking(25.0f, 0.4f,
                {-10388.73, -9319.659, -8594.068, -9185.311, -10173.773, -11037.062, -11556.869, -11171.409},
                {-12791.135, -12134.209, -11242.372, -10794.061, -10646.896, -10959.656, -11507.325, -12299.805}),
        walking(22.0f, 0.6f,
                {-12279.502, -11478.473, -11045.88, -11852.017, -12877.173, -13320.656, -13395.704, -12947.112},
                {-11452.736, -10402.1875, -9073.043, -8490.494, -8394.025, -9009.202, -9902.976, -10920.896}),
        walking(23.0f, 0.88f,
                {-8579.966, -9526.828, -10500.13, -10924.819, -10816.752, -9659.024, -8474.858, -8261.033},
                {-8930.329, -8849.357, -9078.617, -9745.982, -10364.93, -10400.515, -10125.868, -9503.889}),
    };
}

const Seals& Seals::shared() {
    static const Seals instance;
    return instance;
}

} // namespace scenes::nivalis
