#include "engine/Scene.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <typeinfo>
#include <utility>

#include "engine/SetUniform.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/math/Matrix.h"

namespace engine {

namespace {

using math::Matrix;

// One unit in the last place below the float nearest to pi. The projection has always been
// computed with it, and every field of view a scene chose was tuned against it, so it stays.
constexpr float PROJECTION_PI = std::bit_cast<float>(std::uint32_t{0x40490FDAu});

// Stores `matrix` into uniforms[index] unless the index is negative (the shader takes no such
// matrix).
void storeMatrix(const std::vector<std::shared_ptr<commands::UniformValue>>& uniforms, std::int32_t index,
                 const std::array<float, 16>& matrix) {
    if (index < 0) {
        return;
    }
    setUniform(uniforms.at(static_cast<std::size_t>(index)), std::span<const float>(matrix));
}

} // namespace

Scene::CommandList& Scene::getCommands() { return commands; }
Scene::MeshList& Scene::getMeshes() { return meshes; }
Scene::ShaderList& Scene::getShaders() { return shaders; }
Scene::TextureList& Scene::getTextures() { return textures; }
void Scene::setCommands(CommandList list) { commands = std::move(list); }
void Scene::setMeshes(MeshList list) { meshes = std::move(list); }
void Scene::setShaders(ShaderList list) { shaders = std::move(list); }
void Scene::setTextures(TextureList list) { textures = std::move(list); }

void Scene::calculateProjection(float multiplier, std::int32_t width, std::int32_t height) {
    float aspect = 1.0f;
    if (height > 0) {
        aspect = static_cast<float>(width) / static_cast<float>(height);
    }
    const float fov = height <= width ? FOV_LANDSCAPE : FOV_PORTRAIT;
    const float angle = fov * multiplier + zoom * ZOOM_FOV;
    const float top = Z_NEAR * std::tan(angle / 360.0f * PROJECTION_PI);
    const float right = aspect * top;
    Matrix::frustumM(matProjection, 0, -right, right, -top, top, Z_NEAR, Z_FAR);
    if (backendMode == BackendMode::METAL) {
        // Depth 0..1 instead of -1..1; the other fourteen elements stay.
        const float c = Z_FAR / (Z_NEAR - Z_FAR);
        matProjection[10] = c;
        matProjection[14] = c * Z_NEAR;
    }
}

void Scene::initialize() {}

void Scene::updateTimers(double time) { lastFrameTime = time; }

void Scene::updateViewportSize(std::int32_t width, std::int32_t height) {
    viewportWidth = width;
    viewportHeight = height;
}

void Scene::lookAt(const math::Vec3& eye, const math::Vec3& target) {
    if (useExternalViewMatrix) {
        return;
    }
    math::Matrix::setLookAtM(matView, 0, eye.x, eye.y, eye.z, target.x, target.y, target.z, 0.0f, 0.0f,
                             1.0f);
}

void Scene::calculateMVPMatrix(float tx, float ty, float tz, float rx, float ry, float rz, float sx, float sy,
                               float sz) {
    Matrix::setIdentityM(matModel, 0);
    Matrix::translateM(matModel, 0, tx, ty, tz);
    Matrix::rotateM(matModel, 0, rx, 1.0f, 0.0f, 0.0f);
    Matrix::rotateM(matModel, 0, ry, 0.0f, 1.0f, 0.0f);
    Matrix::rotateM(matModel, 0, rz, 0.0f, 0.0f, 1.0f);
    Matrix::scaleM(matModel, 0, sx, sy, sz);
    Matrix::multiplyMM(matMVP, 0, matView, 0, matModel, 0);
    Matrix::multiplyMM(matMVP, 0, matProjection, 0, matMVP, 0);
}

void Scene::calculateMVPMatrixFromModelMatrix(std::span<const float> modelMatrix) {
    Matrix::multiplyMM(matMVP, 0, matView, 0, modelMatrix, 0);
    Matrix::multiplyMM(matMVP, 0, matProjection, 0, matMVP, 0);
}

void Scene::setMvpUniform(const std::shared_ptr<commands::UniformValue>& uniform, float tx, float ty, float tz,
                          float rx, float ry, float rz, float sx, float sy, float sz) {
    calculateMVPMatrix(tx, ty, tz, rx, ry, rz, sx, sy, sz);
    setUniform(uniform, std::span<const float>(matMVP));
}

void Scene::updateMeshTransformations(const CommandList& list) {
    using commands::DrawStaticMeshCommand;
    using commands::DrawTransformedMeshCommand;
    using commands::GroupCommand;
    for (const auto& node : list) {
        commands::Command* command = node.get();
        if (command == nullptr || !command->enabled) {
            continue;
        }
        // The engine's own classes are recognised by their exact type, which is cheaper than a
        // chain of failing dynamic_casts; anything else (scene-defined subclasses) goes through
        // dynamic_cast, so derived classes are still treated as what they derive from.
        const std::type_info& type = typeid(*command);
        GroupCommand* group = nullptr;
        DrawTransformedMeshCommand* draw = nullptr;
        DrawStaticMeshCommand* fixed = nullptr;
        if (type == typeid(DrawTransformedMeshCommand)) {
            draw = static_cast<DrawTransformedMeshCommand*>(command);
        } else if (type == typeid(DrawStaticMeshCommand)) {
            fixed = static_cast<DrawStaticMeshCommand*>(command);
            draw = fixed;
        } else if (type == typeid(GroupCommand)) {
            group = static_cast<GroupCommand*>(command);
        } else if ((group = dynamic_cast<GroupCommand*>(command)) == nullptr) {
            draw = dynamic_cast<DrawTransformedMeshCommand*>(command);
            if (draw != nullptr) {
                fixed = dynamic_cast<DrawStaticMeshCommand*>(draw);
            }
        }
        if (group != nullptr) {
            updateMeshTransformations(group->commands);
            continue;
        }
        if (draw == nullptr) {
            continue;
        }
        if (fixed != nullptr) {
            calculateMVPMatrixFromModelMatrix(fixed->modelMatrix);
            matModel = fixed->modelMatrix;
        } else {
            const auto& t = draw->transform;
            calculateMVPMatrix(t.translation.x, t.translation.y, t.translation.z, t.rotation.x, t.rotation.y,
                               t.rotation.z, t.scale.x, t.scale.y, t.scale.z);
        }
        storeMatrix(draw->uniforms, draw->indexUniformMvp, matMVP);
        storeMatrix(draw->uniforms, draw->indexUniformModel, matModel);
        storeMatrix(draw->uniforms, draw->indexUniformView, matView);
        storeMatrix(draw->uniforms, draw->indexUniformProjection, matProjection);
    }
}

} // namespace engine
