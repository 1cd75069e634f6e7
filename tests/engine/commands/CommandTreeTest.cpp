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

TEST(CommandDefaultsTest, GroupConstructorsTakeStateAndAFreshList) {
    const GroupCommand empty;
    EXPECT_TRUE(empty.enabled);
    EXPECT_TRUE(empty.commands.empty());

    auto child = std::make_shared<NoopCommand>();
    Commands given{child};
    const MainPassCommand pass(false, given);
    EXPECT_FALSE(pass.enabled);
    ASSERT_EQ(pass.commands.size(), 1u);
    EXPECT_EQ(pass.commands[0], child);
    given.push_back(std::make_shared<NoopCommand>());
    EXPECT_EQ(pass.commands.size(), 1u);

    const RenderPassCommand renderPass(true, {child, child});
    EXPECT_EQ(renderPass.commands.size(), 2u);
}

TEST(DrawCommandTest, TransformedDrawsCoverTheWholeMeshAndStartWithoutHints) {
    const AffineTranformation transform({1, 2, 3}, {4, 5, 6}, {7, 8, 9});
    const DrawTransformedMeshCommand moving(nullptr, {}, anyState(), transform, 0, 1, 2, 3,
                                            PrimitiveType::TRIANGLE_STRIP);
    EXPECT_EQ(moving.primitiveCount, -1);
    EXPECT_EQ(moving.transform, transform);
    ASSERT_NE(moving.hints, nullptr);
    EXPECT_TRUE(moving.hints->empty());
}

TEST(StaticMeshTest, TranslationLandsInElementsTwelveToFourteen) {
    const DrawStaticMeshCommand fixed = staticAt(AffineTranformation({1, 2, 3}, {0, 0, 0}, {1, 1, 1}));
    const std::array<float, 16> expected{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1};
    EXPECT_EQ(fixed.modelMatrix, expected);
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

TEST(StaticMeshTest, LaterTransformChangesDoNotMoveTheMatrix) {
    DrawStaticMeshCommand fixed = staticAt(AffineTranformation({1, 2, 3}, {0, 0, 0}, {1, 1, 1}));
    const auto before = fixed.modelMatrix;
    fixed.transform.translation = Vec3(50, 60, 70);
    fixed.transform.scale = Vec3(3, 3, 3);
    EXPECT_EQ(fixed.modelMatrix, before);
    EXPECT_EQ(fixed.transform.translation, Vec3(50, 60, 70));
}

TEST(AffineTranformationTest, TextFormEqualityAndHash) {
    const AffineTranformation a({1, 2, 3}, {0, 90, 0}, {1, 1, 1});
    EXPECT_EQ(a.toString(), "AffineTranformation(translation=Vec3(_x=1.0, _y=2.0, _z=3.0), "
                            "rotation=Vec3(_x=0.0, _y=90.0, _z=0.0), scale=Vec3(_x=1.0, _y=1.0, _z=1.0))");
    const AffineTranformation b({1, 2, 3}, {0, 90, 0}, {1, 1, 1});
    EXPECT_EQ(a, b);
    EXPECT_EQ(a.hash(), b.hash());
    EXPECT_NE(a, AffineTranformation({1, 2, 3}, {0, 90, 0}, {1, 1, 2}));
    EXPECT_NE(a, AffineTranformation({1, 2, 3}, {90, 0, 0}, {1, 1, 1}));
    EXPECT_NE(a, AffineTranformation({1, 2, 4}, {0, 90, 0}, {1, 1, 1}));
    const std::unordered_set<AffineTranformation> set{a, b, AffineTranformation()};
    EXPECT_EQ(set.size(), 2u);

    const AffineTranformation identity;
    EXPECT_EQ(identity, AffineTranformation({0, 0, 0}, {0, 0, 0}, {1, 1, 1}));
}

TEST(HintTest, ListSharedBetweenDrawsChangesForAllOfThem) {
    DrawMeshCommand first(nullptr, {}, anyState(), PrimitiveType::TRIANGLES, -1);
    DrawMeshCommand second(nullptr, {}, anyState(), PrimitiveType::TRIANGLES, -1);
    DrawMeshCommand own(nullptr, {}, anyState(), PrimitiveType::TRIANGLES, -1);
    EXPECT_NE(first.hints, own.hints) << "each draw starts with its own empty list";

    auto shared = std::make_shared<HintList>(HintList{HINT_VRS_NONE});
    first.hints = shared;
    second.hints = shared;
    own.hints->push_back(HINT_VRS_4X4);

    (*shared)[0] = HINT_VRS_2X2;
    EXPECT_EQ(first.hints->at(0), HINT_VRS_2X2);
    EXPECT_EQ(second.hints->at(0), HINT_VRS_2X2);
    EXPECT_EQ(own.hints->at(0), HINT_VRS_4X4);
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

TEST(TreeSharingTest, NodeLivesAsLongAsAnyParentHoldsIt) {
    std::weak_ptr<Command> watch;
    auto first = std::make_shared<GroupCommand>();
    auto second = std::make_shared<GroupCommand>();
    {
        auto node = std::make_shared<NoopCommand>();
        watch = node;
        first->commands.push_back(node);
        second->commands.push_back(node);
    }
    EXPECT_FALSE(watch.expired());
    first.reset();
    EXPECT_FALSE(watch.expired());
    second.reset();
    EXPECT_TRUE(watch.expired());
}

} // namespace
