#include "scenes/spirelight/Cameras.h"

#include "scenes/common/CameraPath.h"

namespace scenes::spirelight {

using common::path;

Cameras::Cameras() {
    CAMERAS = {
        path({182.522f, 451.945f, 100.427f}, {95.6284f, -240.9175f, 179.154f}, {-343.592f, 309.3397f, 121.102f},
             {-48.3742f, -284.307f, 183.019f}),
        path({466.2929f, -304.8695f, 30.3907f}, {-343.613f, 27.9626f, 220.6635f}, {563.2295f, 19.3432f, 24.5347f},
             {-218.4579f, 183.1934f, 193.6569f}),
        path({-17.8381f, -512.5913f, 60.9374f}, {-276.7568f, 195.7981f, 179.154f}, {502.0434f, -225.924f, 73.5525f},
             {-59.8787f, 269.7749f, 205.4007f}),
        path({-620.3696f, -208.8635f, 52.0492f}, {216.4319f, -70.2999f, 243.0198f}, {-536.2955f, -347.5239f, 66.9248f},
             {245.4221f, 141.5389f, 220.255f}),
        path({-405.834f, 809.1909f, 140.3126f}, {195.4269f, -167.5669f, 264.4845f}, {-586.926f, -130.8418f, 24.3898f},
             {195.4269f, -167.5669f, 220.6635f}),
    };
}

const Cameras& Cameras::shared() {
    static const Cameras instance;
    return instance;
}

} // namespace scenes::spirelight
