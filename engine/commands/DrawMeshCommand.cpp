#include "engine/commands/DrawMeshCommand.h"

#include <utility>

namespace engine::commands {

DrawMeshCommand::DrawMeshCommand(std::shared_ptr<Mesh> mesh_, std::vector<std::shared_ptr<UniformValue>> uniforms_,
                                 std::shared_ptr<DrawMeshState> state_, PrimitiveType primitiveType_,
                                 std::int32_t primitiveCount_)
    : mesh(std::move(mesh_)), uniforms(std::move(uniforms_)), state(std::move(state_)),
      primitiveType(primitiveType_), primitiveCount(primitiveCount_) {}

} // namespace engine::commands
