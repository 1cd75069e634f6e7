#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "engine/commands/AffineTranformation.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/MainPassCommand.h"

namespace {

using namespace engine::commands;
using engine::math::Vec3;

using Commands = std::vector<std::shared_ptr<Command>>;

std::shared_ptr<DrawMeshState> anyState() {
    return std::make_shared<DrawMeshState>(std::make_shared<engine::Shader>("Diffuse"), engine::BLENDING_NONE,
                                           engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK, nullptr);
}

DrawStaticMeshCommand staticAt(const AffineTranformation& transform) {
    return DrawStaticMeshCommand(nullptr, {}, anyState(), transform, 0, -1, -1, -1, PrimitiveType::TRIANGLES);
}

// Column-major matrix times the point (x, y, z, 1), written out independently of Matrix.
std::array<float, 3> place(const std::array<float, 16>& m, float x, float y, float z) {
    return {m[0] * x + m[4] * y + m[8] * z + m[12], m[1] * x + m[5] * y + m[9] * z + m[13],
            m[2] * x + m[6] * y + m[10] * z + m[14]};
}

TEST(StaticMeshTest, ScalesThenTurnsAboutZYXThenMoves) {
    // Point (1,0,0): scale 2 -> (2,0,0); Z by 90 -> (0,2,0); X by 90 -> (0,0,2); move -> (5,5,7).
    const DrawStaticMeshCommand fixed = staticAt(AffineTranformation({5, 5, 5}, {90, 0, 90}, {2, 2, 2}));
    const auto p = place(fixed.modelMatrix, 1, 0, 0);
    EXPECT_NEAR(p[0], 5.0f, 1e-5f);
    EXPECT_NEAR(p[1], 5.0f, 1e-5f);
    EXPECT_NEAR(p[2], 7.0f, 1e-5f);

    // Y by 90 takes Z to X.
    const DrawStaticMeshCommand turned = staticAt(AffineTranformation({0, 0, 0}, {0, 90, 0}, {1, 1, 1}));
    const auto q = place(turned.modelMatrix, 0, 0, 1);
    EXPECT_NEAR(q[0], 1.0f, 1e-5f);
    EXPECT_NEAR(q[1], 0.0f, 1e-5f);
    EXPECT_NEAR(q[2], 0.0f, 1e-5f);
}

TEST(TreeSharingTest, OneGroupUnderTwoParentsIsSwitchedOffInBoth) {
    auto room = std::make_shared<GroupCommand>();
    auto blurred = std::make_shared<BlurredPassCommand>();
    auto main = std::make_shared<MainPassCommand>(true, Commands{room});
    blurred->commands.push_back(room);

    room->enabled = false;
    EXPECT_FALSE(main->commands[0]->enabled);
    EXPECT_FALSE(blurred->commands[0]->enabled);
    EXPECT_EQ(main->commands[0], blurred->commands[0]);
}

} // namespace
