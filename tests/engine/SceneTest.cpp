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

    TestScene scene;
};

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

// ---------------------------------------------------------------------------------------------
// The matrix walk over the command tree

std::shared_ptr<DrawTransformedMeshCommand> transformedDraw(std::vector<std::shared_ptr<UniformValue>> uniforms,
                                                            const AffineTranformation& transform, int mvp, int model,
                                                            int view, int projection) {
    return std::make_shared<DrawTransformedMeshCommand>(nullptr, std::move(uniforms), nullptr, transform, mvp, model,
                                                        view, projection, PrimitiveType::TRIANGLES);
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

} // namespace
