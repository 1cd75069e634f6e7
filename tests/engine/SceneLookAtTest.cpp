// The view every scene builds from its camera: eye at the origin of view space, the target straight
// ahead on -Z, world +Z up on screen.
#include <gtest/gtest.h>

#include <array>

#include "engine/Scene.h"
#include "engine/math/Vec3.h"

namespace {

using engine::math::Vec3;

class LookingScene : public engine::Scene {};

// matView (column-major) applied to the world point p.
Vec3 toView(const std::array<float, 16>& m, const Vec3& p) {
    return Vec3(m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12], m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
                m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]);
}

void expectNear(const Vec3& actual, const Vec3& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-4f) << actual.toString();
    EXPECT_NEAR(actual.y, expected.y, 1e-4f) << actual.toString();
    EXPECT_NEAR(actual.z, expected.z, 1e-4f) << actual.toString();
}

TEST(SceneLookAtTest, LookingAlongYFromTheOriginGivesTheAxisSwap) {
    LookingScene scene;
    scene.lookAt(Vec3(0, 0, 0), Vec3(0, 1, 0));
    // Right = forward x up = (1,0,0), up = (0,0,1), back = (0,-1,0).
    const std::array<float, 16> expected{1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1};
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(scene.matView[i], expected[i], 1e-6f) << i;
    }
}

TEST(SceneLookAtTest, TargetAheadWorldUpAboveRightToTheRight) {
    LookingScene scene;
    // Looking along (3,4,0) from (1,2,3): the target is 5 away; the right-hand direction is
    // (4,-3,0)/5.
    const Vec3 eye(1, 2, 3);
    scene.lookAt(eye, Vec3(4, 6, 3));
    expectNear(toView(scene.matView, eye), Vec3(0, 0, 0));
    expectNear(toView(scene.matView, Vec3(4, 6, 3)), Vec3(0, 0, -5));
    expectNear(toView(scene.matView, Vec3(1, 2, 5)), Vec3(0, 2, 0));
    expectNear(toView(scene.matView, Vec3(5, -1, 3)), Vec3(5, 0, 0));
}

TEST(SceneLookAtTest, ExternalViewMatrixIsLeftAlone) {
    LookingScene scene;
    scene.matView.fill(7.0f);
    scene.useExternalViewMatrix = true;
    scene.lookAt(Vec3(0, 0, 0), Vec3(0, 1, 0));
    for (float v : scene.matView) {
        EXPECT_EQ(v, 7.0f);
    }
    scene.useExternalViewMatrix = false;
    scene.lookAt(Vec3(0, 0, 0), Vec3(0, 1, 0));
    EXPECT_EQ(scene.matView[15], 1.0f);
    EXPECT_EQ(scene.matView[0], 1.0f);
}

} // namespace
