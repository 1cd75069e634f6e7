#include "scenes/example/Cameras.h"

namespace scenes::example {

namespace {

using engine::camera::CameraPosition;
using engine::math::Vec3;

std::shared_ptr<InteractiveCameraPositionPair> path(const Vec3& startEye, const Vec3& startTarget, const Vec3& endEye,
                                                    const Vec3& endTarget, bool interactive) {
    return std::make_shared<InteractiveCameraPositionPair>(CameraPosition(startEye, startTarget),
                                                           CameraPosition(endEye, endTarget), 1.0f, "", interactive);
}

} // namespace

Cameras::Cameras() {
    CAMERAS = {
        path({4.84f, -644.785f, -25.362f}, {4.673f, -1.741f, 4.447f}, {2.56f, -126.0f, -8.595f},
             {2.533f, -1.741f, 3.993f}, false),
        path({-137.0f, -115.0f, -12.0f}, {3.485f, -0.679f, -16.321f}, {138.0f, -110.0f, 20.0f},
             {3.485f, -0.679f, -16.321f}, true),
        path({208.0f, -208.0f, -21.0f}, {0.0f, 0.0f, 0.0f}, {265.0f, 77.0f, 22.0f}, {0.0f, 0.0f, -35.0f}, true),
        path({347.0f, 73.0f, 15.0f}, {161.0f, -220.0f, -19.0f}, {69.0f, 365.0f, 15.0f}, {-100.0f, 162.0f, -18.0f},
             true),
        path({147.0f, 212.0f, 0.0f}, {20.0f, -10.0f, 7.0f}, {-146.0f, 182.0f, 30.0f}, {-20.0f, 4.0f, -35.0f}, true),
        path({-244.0f, 139.0f, 77.0f}, {-3.0f, -27.0f, -37.0f}, {-151.0f, -357.0f, 11.0f}, {20.0f, -45.0f, 0.0f},
             true),
        path({-265.0f, -158.0f, -20.0f}, {0.0f, 0.0f, 32.0f}, {-95.0f, -70.0f, 0.0f}, {9.0f, -13.0f, -10.0f}, false),
    };
}

} // namespace scenes::example
