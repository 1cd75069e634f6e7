#pragma once

#include <cstdint>

#include "engine/commands/AffineTranformation.h"
#include "engine/commands/DrawMeshCommand.h"

namespace engine::commands {

/// A draw placed by `transform`, whose matrices Scene::updateMeshTransformations computes each
/// frame and stores into the uniforms named by the four indices. An index below 0 means that the
/// shader does not take that matrix; the uniforms it names must be UniformFloatValues of 16.
class DrawTransformedMeshCommand : public DrawMeshCommand {
public:
    /// Position of the object; scenes write into it.
    AffineTranformation transform;
    /// Index into `uniforms` of the model-view-projection matrix, or negative for none.
    std::int32_t indexUniformMvp;
    /// Index into `uniforms` of the model matrix, or negative for none.
    std::int32_t indexUniformModel;
    /// Index into `uniforms` of the view matrix, or negative for none.
    std::int32_t indexUniformView;
    /// Index into `uniforms` of the projection matrix, or negative for none.
    std::int32_t indexUniformProjection;

    /// A draw of the whole mesh (`primitiveCount` -1) placed by `transform`.
    DrawTransformedMeshCommand(std::shared_ptr<Mesh> mesh, std::vector<std::shared_ptr<UniformValue>> uniforms,
                               std::shared_ptr<DrawMeshState> state, const AffineTranformation& transform,
                               std::int32_t indexUniformMvp, std::int32_t indexUniformModel,
                               std::int32_t indexUniformView, std::int32_t indexUniformProjection,
                               PrimitiveType primitiveType);
};

} // namespace engine::commands
