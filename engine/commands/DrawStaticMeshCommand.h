#pragma once

#include <array>

#include "engine/commands/DrawTransformedMeshCommand.h"

namespace engine::commands {

/// A transformed draw that never moves: its model matrix is made once, in the constructor, from
/// the transform given there, in the same order as Scene::calculateMVPMatrix (translate, rotate
/// about X, Y, Z, scale), so that a static and a transformed draw of equal transform coincide.
/// Later changes to `transform` move nothing.
class DrawStaticMeshCommand : public DrawTransformedMeshCommand {
public:
    /// The model matrix, column-major.
    std::array<float, 16> modelMatrix{};

    /// As DrawTransformedMeshCommand, and builds `modelMatrix` from `transform`.
    DrawStaticMeshCommand(std::shared_ptr<Mesh> mesh, std::vector<std::shared_ptr<UniformValue>> uniforms,
                          std::shared_ptr<DrawMeshState> state, const AffineTranformation& transform,
                          std::int32_t indexUniformMvp, std::int32_t indexUniformModel,
                          std::int32_t indexUniformView, std::int32_t indexUniformProjection,
                          PrimitiveType primitiveType);
};

} // namespace engine::commands
