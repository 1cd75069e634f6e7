#include "scenes/nivalis/Cameras.h"

namespace scenes::nivalis {

namespace {

using engine::camera::CameraPosition;
using engine::camera::CameraPositionPair;
using engine::math::Vec3;

std::shared_ptr<CameraPositionPair> path(const Vec3& startEye, const Vec3& startTarget, const Vec3& endEye,
                                         const Vec3& endTarget) {
    return std::make_shared<CameraPositionPair>(CameraPosition(startEye, startTarget),
                                                CameraPosition(endEye, endTarget), 1.0f);
}

} // namespace

Cameras::Cameras() {
    CAMERAS = {
        path({-20834.791f, 47426.33f, 2531.646f}, {-25922.844f, 23601.791f, 886.872f},
             {10194.038f, -1464.044f, 886.872f}, {918.405f, -14209.802f, 886.872f}),
        path({-4109.569f, 11284.58f, 2531.646f}, {-26652.816f, 1825.736f, 886.872f},
             {4167.435f, 9801.106f, 886.872f}, {20338.879f, -12121.901f, 886.872f}),
        path({-1316.869f, -26605.557f, 730.833f}, {7972.117f, -8640.933f, 156.916f},
             {5633.813f, -2835.024f, 590.909f}, {7054.362f, -11628.732f, 156.916f}),
        path({1058.602f, -6343.349f, 7252.608f}, {12343.629f, -9785.771f, 156.916f},
             {10627.578f, -5523.65f, 952.352f}, {7975.851f, -12773.571f, 156.916f}),
        path({-15084.583f, -6685.166f, 1734.204f}, {-7877.742f, -11902.989f, 156.916f},
             {-5300.519f, -8189.871f, 2864.12f}, {-14072.867f, -12477.64f, 156.916f}),
        path({-12847.906f, 6333.75f, 388.651f}, {-9402.603f, 9611.532f, 156.916f},
             {-7762.645f, 7800.965f, 3749.253f}, {-11462.321f, 8195.902f, 156.916f}),
        path({-22389.021f, 1075.924f, 5119.1f}, {-6829.5f, 16726.61f, 3154.788f},
             {-23767.002f, 14537.841f, 5001.777f}, {1434.719f, 1224.992f, 4490.559f}),
        path({-35127.016f, 27564.738f, 886.872f}, {-7923.539f, 14634.557f, 886.872f},
             {-24081.432f, -14828.664f, 886.872f}, {-7150.61f, -5201.194f, 886.872f}),
        path({-26917.791f, 18527.285f, 3173.479f}, {-19059.227f, 11528.038f, 886.872f},
             {1437.67f, 4945.704f, 571.601f}, {6268.789f, -4323.603f, 886.872f}),
    };
}

const Cameras& Cameras::shared() {
    static const Cameras instance;
    return instance;
}

} // namespace scenes::nivalis
