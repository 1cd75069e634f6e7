#include "engine/camera/CameraPosition.h"
#include "engine/camera/CameraPositionPair.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace {

using namespace engine::camera;
using engine::math::Vec3;

TEST(CameraValuesTest, PositionAndPairTextForms) {
    const CameraPosition start(Vec3(1, 2, 3), Vec3(0.5f, 0, -1));
    EXPECT_EQ(start.toString(),
              "CameraPosition(position=Vec3(_x=1.0, _y=2.0, _z=3.0), rotation=Vec3(_x=0.5, _y=0.0, _z=-1.0))");
    const CameraPositionPair pair(start, CameraPosition(Vec3(4, 5, 6), Vec3(7, 8, 9)), 1.0f);
    EXPECT_EQ(pair.toString(),
              "CameraPositionPair(start=CameraPosition(position=Vec3(_x=1.0, _y=2.0, _z=3.0), "
              "rotation=Vec3(_x=0.5, _y=0.0, _z=-1.0)), end=CameraPosition(position=Vec3(_x=4.0, _y=5.0, "
              "_z=6.0), rotation=Vec3(_x=7.0, _y=8.0, _z=9.0)), speedMultiplier=1.0)");
}

TEST(CameraValuesTest, EqualityAndHashFollowEveryField) {
    const CameraPosition a(Vec3(1, 2, 3), Vec3(4, 5, 6));
    CameraPosition b = a;
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.hash(), b.hash());
    b.rotation.z = 7;
    EXPECT_NE(a, b);

    const CameraPositionPair p(a, b, 1.0f);
    CameraPositionPair q = p;
    EXPECT_EQ(p, q);
    EXPECT_EQ(std::hash<CameraPositionPair>{}(p), q.hash());
    q.speedMultiplier = 2.0f;
    EXPECT_NE(p, q);
    CameraPositionPair r = p;
    r.end.position.x = -1;
    EXPECT_NE(p, r);

    std::unordered_set<CameraPositionPair> set{p, q, r, p};
    EXPECT_EQ(set.size(), 3u);
}

} // namespace
