#include "engine/commands/DrawTransformedMeshCommand.h"

#include <utility>

namespace engine::commands {

DrawTransformedMeshCommand::DrawTransformedMeshCommand(
    std::shared_ptr<Mesh> mesh_, std::vector<std::shared_ptr<UniformValue>> uniforms_,
    std::shared_ptr<DrawMeshState> state_, const AffineTranformation& transform_, std::int32_t indexUniformMvp_,
    std::int32_t indexUniformModel_, std::int32_t indexUniformView_, std::int32_t indexUniformProjection_,
    PrimitiveType primitiveType_)
    : DrawMeshCommand(std::move(mesh_), std::move(uniforms_), std::move(state_), primitiveType_, -1),
      transform(transform_), indexUniformMvp(indexUniformMvp_), indexUniformModel(indexUniformModel_),
      indexUniformView(indexUniformView_), indexUniformProjection(indexUniformProjection_) {}

} // namespace engine::commands
