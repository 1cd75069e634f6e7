#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "engine/commands/AffineTranformation.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/NoopCommand.h"
#include "engine/commands/RenderPassCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/VignetteCommand.h"
#include "engine/commands/VrsHint.h"

namespace {

using namespace engine::commands;
using engine::math::Vec3;
using engine::math::Vec4;

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

// A command a scene defines for itself.
class ClockCommand : public Command {
public:
    CommandType type() const override { return CommandType::CUSTOM; }
};

TEST(CommandTypeTest, EachClassReportsItsType) {
    const auto mesh = std::make_shared<engine::Mesh>();
    EXPECT_EQ(NoopCommand().type(), CommandType::NOOP);
    EXPECT_EQ(GroupCommand().type(), CommandType::GROUP);
    EXPECT_EQ(ClearColorCommand().type(), CommandType::CLEAR_COLOR);
    EXPECT_EQ(ClearCommand().type(), CommandType::CLEAR);
    EXPECT_EQ(VignetteCommand().type(), CommandType::VIGNETTE);
    EXPECT_EQ(BlurredPassCommand().type(), CommandType::BLURRED_PASS);
    EXPECT_EQ(DrawBlurredCommand().type(), CommandType::DRAW_BLURRED);
    EXPECT_EQ(RenderPassCommand().type(), CommandType::RENDER_PASS);
    EXPECT_EQ(MainPassCommand().type(), CommandType::MAIN_PASS);
    EXPECT_EQ(ClockCommand().type(), CommandType::CUSTOM);

    // Every draw flavour reports DRAW_MESH; they are told apart by class.
    const DrawMeshCommand plain(mesh, {}, anyState(), PrimitiveType::TRIANGLES, -1);
    const DrawTransformedMeshCommand moving(mesh, {}, anyState(), {}, 0, -1, -1, -1, PrimitiveType::TRIANGLES);
    const DrawStaticMeshCommand fixed = staticAt({});
    EXPECT_EQ(plain.type(), CommandType::DRAW_MESH);
    EXPECT_EQ(moving.type(), CommandType::DRAW_MESH);
    EXPECT_EQ(fixed.type(), CommandType::DRAW_MESH);

    // Through the base class too, since the renderer dispatches on Command pointers.
    const std::shared_ptr<Command> asBase = std::make_shared<MainPassCommand>();
    EXPECT_EQ(asBase->type(), CommandType::MAIN_PASS);
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
