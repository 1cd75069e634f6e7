#include "host/wayland/SurfaceScale.h"

#include <gtest/gtest.h>

namespace host::wayland {
namespace {

TEST(SurfaceScaleTest, BufferSizeRatioAndBufferScaleFollowTheScale) {
    struct Case {
        SurfaceScale scale;
        QSize logical;
        QSize buffer;
        double ratio;
        int bufferScale;
    };
    const Case cases[] = {
        {SurfaceScale::whole(1), {1920, 1080}, {1920, 1080}, 1.0, 1},
        {SurfaceScale::whole(2), {1280, 720}, {2560, 1440}, 2.0, 2},
        {SurfaceScale::whole(0), {800, 600}, {800, 600}, 1.0, 1},
        // A 3840x2160 panel at 1.5 is 2560x1440 logical: drawn at its own pixels, not 5120x2880.
        {SurfaceScale::fractional(180), {2560, 1440}, {3840, 2160}, 1.5, 2},
        {SurfaceScale::fractional(150), {1536, 864}, {1920, 1080}, 1.25, 2},
        // Halves round away from zero: 1001 x 1.5 = 1501.5.
        {SurfaceScale::fractional(180), {1001, 3}, {1502, 5}, 1.5, 2},
        {SurfaceScale::fractional(140), {1097, 617}, {1280, 720}, 140.0 / 120, 2},
        {SurfaceScale::fractional(0), {640, 480}, {640, 480}, 1.0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.scale.numerator());
        EXPECT_EQ(c.scale.bufferSize(c.logical), c.buffer);
        EXPECT_DOUBLE_EQ(c.scale.ratio(), c.ratio);
        EXPECT_EQ(c.scale.bufferScale(), c.bufferScale);
    }
}

} // namespace
} // namespace host::wayland
