#include "engine/Scene.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformIntValue.h"

namespace {

using engine::BackendMode;
using engine::Scene;
using namespace engine::commands;
using Mat = std::array<float, 16>;
using Vec = std::array<float, 4>;

// The base class is abstract only by its protected constructor; a test scene adds nothing.
class TestScene : public Scene {};

constexpr double DEG = std::numbers::pi / 180.0;

// Column-major matrix times column vector, written out independently of the engine's Matrix.
Vec transformPoint(const Mat& m, const Vec& v) {
    Vec out{};
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) {
            out[r] += m[4 * c + r] * v[c];
        }
    }
    return out;
}

Vec transformPoint(const std::vector<float>& m, const Vec& v) {
    Mat a{};
    std::copy(m.begin(), m.begin() + 16, a.begin());
    return transformPoint(a, v);
}

Mat translation(float x, float y, float z) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
}

Mat diagonal(float a, float b, float c, float d) {
    return {a, 0, 0, 0, 0, b, 0, 0, 0, 0, c, 0, 0, 0, 0, d};
}

void expectVecNear(const Vec& actual, const Vec& expected, float tolerance = 1e-4f) {
    for (int i = 0; i < 4; ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
    }
}

void expectMatNear(const std::vector<float>& actual, const Mat& expected, float tolerance = 1e-4f) {
    ASSERT_EQ(actual.size(), 16u);
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "element " << i;
    }
}

std::shared_ptr<UniformFloatValue> matrixUniform(float fill = 7.0f) {
    return std::make_shared<UniformFloatValue>(std::vector<float>(16, fill));
}

// ---------------------------------------------------------------------------------------------
// Projection

class ProjectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        scene.FOV_LANDSCAPE = 85.0f;
        scene.FOV_PORTRAIT = 100.0f;
        scene.Z_NEAR = 20.0f;
        scene.Z_FAR = 10000.0f;
    }

    // 1 / tan(half the vertical angle): element 5 of a symmetric perspective projection.
    static double focal(double angleDegrees) { return 1.0 / std::tan(angleDegrees / 2.0 * DEG); }

    TestScene scene;
};

TEST_F(ProjectionTest, OrientationPicksTheAngleAndXIsDividedByAspect) {
    // Portrait needs taller than wide; before the first resize (0 x 0) and with a negative
    // height the aspect stays 1 and the view counts as landscape.
    struct Case {
        int width;
        int height;
        double angle;
        double aspect;
    };
    for (const Case& c : {Case{600, 600, 85.0, 1.0}, Case{600, 601, 100.0, 600.0 / 601.0},
                          Case{1920, 1080, 85.0, 1920.0 / 1080.0}, Case{0, 0, 85.0, 1.0}, Case{300, -5, 85.0, 1.0}}) {
        SCOPED_TRACE(std::to_string(c.width) + " x " + std::to_string(c.height));
        scene.calculateProjection(1.0f, c.width, c.height);
        EXPECT_NEAR(scene.matProjection[5], focal(c.angle), 1e-5);
        EXPECT_NEAR(scene.matProjection[0], focal(c.angle) / c.aspect, 1e-5);
        for (float element : scene.matProjection) {
            EXPECT_TRUE(std::isfinite(element));
        }
    }
    // A symmetric frustum: no off-centre terms, w = -z.
    EXPECT_EQ(scene.matProjection[8], 0.0f);
    EXPECT_EQ(scene.matProjection[9], 0.0f);
    EXPECT_EQ(scene.matProjection[11], -1.0f);
    EXPECT_EQ(scene.matProjection[15], 0.0f);
}

TEST_F(ProjectionTest, ZoomAndMultiplierWidenTheAngle) {
    scene.zoom = 0.5f; // ZOOM_FOV defaults to 10: five degrees more.
    scene.calculateProjection(1.0f, 600, 600);
    EXPECT_NEAR(scene.matProjection[5], focal(90.0), 1e-5);

    scene.zoom = 0.0f;
    scene.FOV_LANDSCAPE = 45.0f;
    scene.calculateProjection(2.0f, 600, 600);
    EXPECT_NEAR(scene.matProjection[5], focal(90.0), 1e-5);

    scene.ZOOM_FOV = 20.0f;
    scene.zoom = 1.0f;
    scene.calculateProjection(1.0f, 600, 600);
    EXPECT_NEAR(scene.matProjection[5], focal(65.0), 1e-5);
}

TEST_F(ProjectionTest, DepthRangeFollowsBackendMode) {
    const double n = 20.0;
    const double f = 10000.0;

    scene.backendMode = BackendMode::OPENGL;
    scene.calculateProjection(1.0f, 800, 600);
    const Mat gl = scene.matProjection;
    EXPECT_NEAR(gl[10], (f + n) / (n - f), 1e-5);
    EXPECT_NEAR(gl[14], 2.0 * f * n / (n - f), 1e-3);

    scene.backendMode = BackendMode::METAL;
    scene.calculateProjection(1.0f, 800, 600);
    const Mat metal = scene.matProjection;
    EXPECT_NEAR(metal[10], f / (n - f), 1e-5);
    EXPECT_NEAR(metal[14], f * n / (n - f), 1e-3);
    for (int i = 0; i < 16; ++i) {
        if (i != 10 && i != 14) {
            EXPECT_EQ(metal[i], gl[i]) << "element " << i;
        }
    }

    // The near plane lands on clip depth -1 (OPENGL) or 0 (METAL), the far plane on 1.
    const Vec nearGl = transformPoint(gl, {0, 0, -20.0f, 1});
    const Vec farGl = transformPoint(gl, {0, 0, -10000.0f, 1});
    const Vec nearMetal = transformPoint(metal, {0, 0, -20.0f, 1});
    const Vec farMetal = transformPoint(metal, {0, 0, -10000.0f, 1});
    EXPECT_NEAR(nearGl[2] / nearGl[3], -1.0f, 1e-5);
    EXPECT_NEAR(farGl[2] / farGl[3], 1.0f, 1e-5);
    EXPECT_NEAR(nearMetal[2] / nearMetal[3], 0.0f, 1e-5);
    EXPECT_NEAR(farMetal[2] / farMetal[3], 1.0f, 1e-5);
}

TEST_F(ProjectionTest, UsesTheFloatJustBelowPi) {
    // With 180 degrees the half angle is exactly pi/2 in float arithmetic, so element 5 is
    // 1 / tan(pi_f / 2) = (pi - pi_f) / 2: positive with the float one unit below pi
    // (3.1415925025939941), negative with the nearest float to pi.
    scene.FOV_LANDSCAPE = 180.0f;
    scene.Z_NEAR = 1.0f;
    scene.Z_FAR = 100.0f;
    scene.calculateProjection(1.0f, 600, 600);
    const double expected = (std::numbers::pi - 3.1415925025939941) / 2.0;
    EXPECT_NEAR(scene.matProjection[5], expected, expected * 1e-3);
}

TEST_F(ProjectionTest, UnusablePlanesFailWithTheFrustumMessages) {
    auto messageOf = [this](float nearPlane, float farPlane, float fov) {
        scene.Z_NEAR = nearPlane;
        scene.Z_FAR = farPlane;
        scene.FOV_LANDSCAPE = fov;
        try {
            scene.calculateProjection(1.0f, 600, 400);
        } catch (const std::invalid_argument& e) {
            return std::string(e.what());
        }
        return std::string("no failure");
    };
    EXPECT_EQ(messageOf(50.0f, 50.0f, 60.0f), "near == far");
    EXPECT_EQ(messageOf(-1.0f, 100.0f, 60.0f), "near <= 0.0f");
    EXPECT_EQ(messageOf(1.0f, -5.0f, 60.0f), "far <= 0.0f");
    // A near plane of 0 or an angle of 0 collapses the frustum to a point.
    EXPECT_EQ(messageOf(0.0f, 100.0f, 60.0f), "left == right");
    EXPECT_EQ(messageOf(1.0f, 100.0f, 0.0f), "left == right");

    TestScene unconfigured;
    EXPECT_THROW(unconfigured.calculateProjection(1.0f, 600, 400), std::invalid_argument);
}

// ---------------------------------------------------------------------------------------------
// Model-view-projection

TEST(MvpTest, ProductIsProjectionTimesViewTimesTranslateRotateScale) {
    TestScene scene;
    scene.matView = translation(10, 20, 30);
    scene.matProjection = diagonal(1, 2, 3, 1);
    scene.calculateMVPMatrix(1, 2, 3, 0, 0, 90, 2, 2, 2);

    // (1,0,0): scaled to (2,0,0), turned about Z to (0,2,0), moved to (1,4,3).
    expectVecNear(transformPoint(scene.matModel, {1, 0, 0, 1}), {1, 4, 3, 1});
    // Then the view adds (10,20,30) and the projection scales by (1,2,3).
    expectVecNear(transformPoint(scene.matMVP, {1, 0, 0, 1}), {11, 48, 99, 1});
}

TEST(MvpTest, RotationsTurnAboutZThenYThenX) {
    TestScene scene;
    scene.matView = diagonal(1, 1, 1, 1);
    scene.matProjection = diagonal(1, 1, 1, 1);

    // Z first takes X to Y, then X takes Y to Z. The other order would leave (0,1,0).
    scene.calculateMVPMatrix(0, 0, 0, 90, 0, 90, 1, 1, 1);
    expectVecNear(transformPoint(scene.matModel, {1, 0, 0, 1}), {0, 0, 1, 1});

    // Y (90) takes Z to X, then X leaves X alone.
    scene.calculateMVPMatrix(0, 0, 0, 90, 90, 0, 1, 1, 1);
    expectVecNear(transformPoint(scene.matModel, {0, 0, 1, 1}), {1, 0, 0, 1});

    // Scale happens before rotation: a stretch along X ends up along Y.
    scene.calculateMVPMatrix(0, 0, 0, 0, 0, 90, 3, 1, 1);
    expectVecNear(transformPoint(scene.matModel, {1, 0, 0, 1}), {0, 3, 0, 1});
}

TEST(MvpTest, FromModelMatrixWritesOnlyMvp) {
    TestScene scene;
    scene.matView = translation(0, 0, -5);
    scene.matProjection = diagonal(2, 2, 2, 1);
    scene.matModel = diagonal(9, 9, 9, 9);
    const Mat model = translation(1, 1, 1);
    scene.calculateMVPMatrixFromModelMatrix(model);
    expectVecNear(transformPoint(scene.matMVP, {0, 0, 0, 1}), {2, 2, -8, 1});
    EXPECT_EQ(scene.matModel, diagonal(9, 9, 9, 9));
}

TEST(MvpTest, SetMvpUniformStoresTheProduct) {
    TestScene scene;
    scene.matView = diagonal(1, 1, 1, 1);
    scene.matProjection = diagonal(1, 1, 1, 1);
    auto uniform = matrixUniform();
    scene.setMvpUniform(uniform, 5, 6, 7, 0, 0, 0, 1, 1, 1);
    expectMatNear(uniform->value, translation(5, 6, 7));

    auto shortUniform = std::make_shared<UniformFloatValue>(std::vector<float>(4, 0.0f));
    EXPECT_THROW(scene.setMvpUniform(shortUniform, 0, 0, 0, 0, 0, 0, 1, 1, 1), std::out_of_range);
}

// ---------------------------------------------------------------------------------------------
// The matrix walk over the command tree

std::shared_ptr<DrawTransformedMeshCommand> transformedDraw(std::vector<std::shared_ptr<UniformValue>> uniforms,
                                                            const AffineTranformation& transform, int mvp, int model,
                                                            int view, int projection) {
    return std::make_shared<DrawTransformedMeshCommand>(nullptr, std::move(uniforms), nullptr, transform, mvp, model,
                                                        view, projection, PrimitiveType::TRIANGLES);
}

std::shared_ptr<DrawStaticMeshCommand> staticDraw(std::vector<std::shared_ptr<UniformValue>> uniforms,
                                                  const AffineTranformation& transform, int mvp, int model) {
    return std::make_shared<DrawStaticMeshCommand>(nullptr, std::move(uniforms), nullptr, transform, mvp, model, -1,
                                                   -1, PrimitiveType::TRIANGLES);
}

AffineTranformation at(float x, float y, float z) {
    return AffineTranformation({x, y, z}, {0, 0, 0}, {1, 1, 1});
}

class MeshTransformationsTest : public ::testing::Test {
protected:
    void SetUp() override {
        scene.matView = translation(0, 0, -5);
        scene.matProjection = diagonal(2, 2, 2, 1);
    }
    TestScene scene;
};

TEST_F(MeshTransformationsTest, StoresAllFourMatricesAtTheirIndices) {
    auto mvp = matrixUniform();
    auto model = matrixUniform();
    auto view = matrixUniform();
    auto projection = matrixUniform();
    auto texture = std::make_shared<UniformIntValue>(std::vector<std::int32_t>{3});
    // Indices deliberately out of list order.
    auto draw = transformedDraw({texture, projection, mvp, view, model}, at(1, 2, 3), 2, 4, 3, 1);
    scene.commands = {draw};

    scene.updateMeshTransformations(scene.commands);

    expectMatNear(model->value, translation(1, 2, 3));
    expectMatNear(view->value, translation(0, 0, -5));
    expectMatNear(projection->value, diagonal(2, 2, 2, 1));
    // Origin of the object: (1,2,3) -> view (1,2,-2) -> projection (2,4,-4).
    expectVecNear(transformPoint(mvp->value, {0, 0, 0, 1}), {2, 4, -4, 1});
    EXPECT_EQ(texture->value, std::vector<std::int32_t>{3});
}

TEST_F(MeshTransformationsTest, ScenesMoveTransformedDrawsByWritingTheTransform) {
    auto model = matrixUniform();
    auto draw = transformedDraw({model}, at(1, 2, 3), -1, 0, -1, -1);
    scene.commands = {draw};
    scene.updateMeshTransformations(scene.commands);
    expectMatNear(model->value, translation(1, 2, 3));

    draw->transform.translation.x = 40.0f;
    draw->transform.rotation.z = 90.0f;
    scene.updateMeshTransformations(scene.commands);
    expectVecNear(transformPoint(model->value, {1, 0, 0, 1}), {40, 3, 3, 1});
}

TEST_F(MeshTransformationsTest, StaticDrawKeepsTheMatrixOfItsConstruction) {
    auto mvp = matrixUniform();
    auto model = matrixUniform();
    auto draw = staticDraw({mvp, model}, at(1, 2, 3), 0, 1);
    draw->transform.translation = {100, 100, 100};
    scene.commands = {draw};

    scene.updateMeshTransformations(scene.commands);

    expectMatNear(model->value, translation(1, 2, 3));
    expectVecNear(transformPoint(mvp->value, {0, 0, 0, 1}), {2, 4, -4, 1});
    EXPECT_EQ(scene.matModel, draw->modelMatrix);
}

TEST_F(MeshTransformationsTest, StaticAndTransformedDrawsOfEqualTransformCoincide) {
    const AffineTranformation transform({3, -4, 5}, {30, -45, 60}, {2, 0.5f, 1.5f});
    auto staticModel = matrixUniform();
    auto movingModel = matrixUniform();
    scene.commands = {staticDraw({staticModel}, transform, -1, 0), transformedDraw({movingModel}, transform, -1, 0, -1, -1)};
    scene.updateMeshTransformations(scene.commands);
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(staticModel->value[i], movingModel->value[i], 1e-5f) << "element " << i;
    }
}

TEST_F(MeshTransformationsTest, NegativeIndicesWriteNothingButStillComputeTheMatrices) {
    auto draw = transformedDraw({}, at(6, 7, 8), -1, -1, -1, -1);
    scene.commands = {draw};
    scene.updateMeshTransformations(scene.commands);
    EXPECT_EQ(scene.matModel, translation(6, 7, 8));
    expectVecNear(transformPoint(scene.matMVP, {0, 0, 0, 1}), {12, 14, 6, 1});
}

TEST_F(MeshTransformationsTest, RecursesIntoEveryKindOfGroupInListOrder) {
    auto first = matrixUniform();
    auto second = matrixUniform();
    auto third = matrixUniform();
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->commands = {transformedDraw({first}, at(1, 0, 0), -1, 0, -1, -1)};
    auto main = std::make_shared<MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{
                  std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{
                                                           transformedDraw({second}, at(2, 0, 0), -1, 0, -1, -1)}),
                  transformedDraw({third}, at(3, 0, 0), -1, 0, -1, -1)});
    scene.commands = {blurred, main};

    scene.updateMeshTransformations(scene.commands);

    expectMatNear(first->value, translation(1, 0, 0));
    expectMatNear(second->value, translation(2, 0, 0));
    expectMatNear(third->value, translation(3, 0, 0));
    // The last draw of the walk is the one left in matModel.
    EXPECT_EQ(scene.matModel, translation(3, 0, 0));
}

// Classes a scene derives for itself are treated as what they derive from.
class SceneGroup : public GroupCommand {
public:
    CommandType type() const override { return CommandType::CUSTOM; }
};

class SceneDraw : public DrawTransformedMeshCommand {
public:
    using DrawTransformedMeshCommand::DrawTransformedMeshCommand;
};

class SceneStaticDraw : public DrawStaticMeshCommand {
public:
    using DrawStaticMeshCommand::DrawStaticMeshCommand;
};

TEST_F(MeshTransformationsTest, SceneDefinedSubclassesAreWalkedByWhatTheyDeriveFrom) {
    auto moving = matrixUniform();
    auto fixed = matrixUniform();
    auto group = std::make_shared<SceneGroup>();
    group->commands = {
        std::make_shared<SceneDraw>(nullptr, std::vector<std::shared_ptr<UniformValue>>{moving}, nullptr, at(4, 0, 0),
                                    -1, 0, -1, -1, PrimitiveType::TRIANGLES),
        std::make_shared<SceneStaticDraw>(nullptr, std::vector<std::shared_ptr<UniformValue>>{fixed}, nullptr,
                                          at(5, 0, 0), -1, 0, -1, -1, PrimitiveType::TRIANGLES)};
    std::static_pointer_cast<SceneStaticDraw>(group->commands[1])->transform = at(50, 0, 0);
    scene.commands = {group};

    scene.updateMeshTransformations(scene.commands);

    expectMatNear(moving->value, translation(4, 0, 0));
    expectMatNear(fixed->value, translation(5, 0, 0));
}

TEST_F(MeshTransformationsTest, DisabledSubtreesAndNullEntriesAreSkipped) {
    auto hidden = matrixUniform();
    auto visible = matrixUniform();
    // Under the switched-off group sits a draw whose index is beyond its uniforms: touching it
    // would throw, so passing the test shows the subtree costs no matrix work.
    auto broken = transformedDraw({}, at(0, 0, 0), 5, -1, -1, -1);
    auto off = std::make_shared<GroupCommand>(
        false, std::vector<std::shared_ptr<Command>>{transformedDraw({hidden}, at(9, 9, 9), -1, 0, -1, -1), broken});
    auto disabledDraw = transformedDraw({hidden}, at(8, 8, 8), -1, 0, -1, -1);
    disabledDraw->enabled = false;
    scene.commands = {nullptr, off, disabledDraw,
                      std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{
                                                               nullptr, transformedDraw({visible}, at(1, 1, 1), -1, 0, -1, -1)})};

    ASSERT_NO_THROW(scene.updateMeshTransformations(scene.commands));
    EXPECT_EQ(hidden->value, std::vector<float>(16, 7.0f));
    expectMatNear(visible->value, translation(1, 1, 1));

    // Switched on again, the subtree is correct from that same walk on.
    off->commands.pop_back();
    off->enabled = true;
    scene.updateMeshTransformations(scene.commands);
    expectMatNear(hidden->value, translation(9, 9, 9));
}

TEST_F(MeshTransformationsTest, SharedGroupIsWalkedUnderEachParentAndSwitchedOffEverywhere) {
    auto model = matrixUniform();
    auto draw = transformedDraw({model}, at(1, 0, 0), -1, 0, -1, -1);
    auto room = std::make_shared<GroupCommand>(true, std::vector<std::shared_ptr<Command>>{draw});
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->commands = {room};
    auto main = std::make_shared<MainPassCommand>(true, std::vector<std::shared_ptr<Command>>{room});
    scene.commands = {blurred, main};

    scene.updateMeshTransformations(scene.commands);
    expectMatNear(model->value, translation(1, 0, 0));

    room->enabled = false;
    draw->transform.translation.x = 2.0f;
    scene.updateMeshTransformations(scene.commands);
    expectMatNear(model->value, translation(1, 0, 0));
}

TEST_F(MeshTransformationsTest, PlainDrawsAreLeftToTheirScene) {
    auto uniform = matrixUniform();
    auto plain = std::make_shared<DrawMeshCommand>(nullptr, std::vector<std::shared_ptr<UniformValue>>{uniform},
                                                   nullptr, PrimitiveType::TRIANGLES, -1);
    scene.commands = {plain};
    scene.updateMeshTransformations(scene.commands);
    EXPECT_EQ(uniform->value, std::vector<float>(16, 7.0f));
}

TEST_F(MeshTransformationsTest, ExternalViewMatrixIsUsedAsStored) {
    scene.useExternalViewMatrix = true;
    scene.matView = translation(100, 0, 0);
    auto mvp = matrixUniform();
    auto view = matrixUniform();
    scene.commands = {transformedDraw({mvp, view}, at(1, 0, 0), 0, -1, 1, -1)};
    scene.updateMeshTransformations(scene.commands);
    EXPECT_EQ(scene.matView, translation(100, 0, 0));
    expectMatNear(view->value, translation(100, 0, 0));
    expectVecNear(transformPoint(mvp->value, {0, 0, 0, 1}), {202, 0, 0, 1});
}

TEST_F(MeshTransformationsTest, BadIndicesAndWrongUniformsFail) {
    scene.commands = {transformedDraw({matrixUniform()}, at(0, 0, 0), 1, -1, -1, -1)};
    EXPECT_THROW(scene.updateMeshTransformations(scene.commands), std::out_of_range);

    auto ints = std::make_shared<UniformIntValue>(std::vector<std::int32_t>(16, 0));
    scene.commands = {transformedDraw({ints}, at(0, 0, 0), 0, -1, -1, -1)};
    EXPECT_THROW(scene.updateMeshTransformations(scene.commands), std::invalid_argument);

    scene.commands = {transformedDraw({nullptr}, at(0, 0, 0), 0, -1, -1, -1)};
    EXPECT_THROW(scene.updateMeshTransformations(scene.commands), std::invalid_argument);

    auto shortUniform = std::make_shared<UniformFloatValue>(std::vector<float>(4, 0.0f));
    scene.commands = {transformedDraw({shortUniform}, at(0, 0, 0), 0, -1, -1, -1)};
    EXPECT_THROW(scene.updateMeshTransformations(scene.commands), std::out_of_range);
    EXPECT_EQ(shortUniform->value, std::vector<float>(4, 0.0f));
}

} // namespace
