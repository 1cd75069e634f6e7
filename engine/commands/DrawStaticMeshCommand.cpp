#include "engine/commands/DrawStaticMeshCommand.h"

#include <utility>

#include "engine/math/Matrix.h"

namespace engine::commands {

DrawStaticMeshCommand::DrawStaticMeshCommand(
    std::shared_ptr<Mesh> mesh_, std::vector<std::shared_ptr<UniformValue>> uniforms_,
    std::shared_ptr<DrawMeshState> state_, const AffineTranformation& transform_, std::int32_t indexUniformMvp_,
    std::int32_t indexUniformModel_, std::int32_t indexUniformView_, std::int32_t indexUniformProjection_,
    PrimitiveType primitiveType_)
    : DrawTransformedMeshCommand(std::move(mesh_), std::move(uniforms_), std::move(state_), transform_,
                                 indexUniformMvp_, indexUniformModel_, indexUniformView_, indexUniformProjection_,
                                 primitiveType_) {
    // Same order as Scene::calculateMVPMatrix, so a static and a moving draw of equal transform
    // land in the same place.
    using math::Matrix;
    const math::Vec3& t = transform.translation;
    const math::Vec3& r = transform.rotation;
    const math::Vec3& s = transform.scale;
    Matrix::setIdentityM(modelMatrix, 0);
    Matrix::translateM(modelMatrix, 0, t.x, t.y, t.z);
    Matrix::rotateM(modelMatrix, 0, r.x, 1.0f, 0.0f, 0.0f);
    Matrix::rotateM(modelMatrix, 0, r.y, 0.0f, 1.0f, 0.0f);
    Matrix::rotateM(modelMatrix, 0, r.z, 0.0f, 0.0f, 1.0f);
    Matrix::scaleM(modelMatrix, 0, s.x, s.y, s.z);
}

} // namespace engine::commands
