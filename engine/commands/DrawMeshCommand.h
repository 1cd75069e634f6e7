#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/Mesh.h"
#include "engine/commands/Command.h"
#include "engine/commands/DrawMeshState.h"
#include "engine/commands/Hint.h"
#include "engine/commands/PrimitiveType.h"
#include "engine/commands/UniformValue.h"

namespace engine::commands {

/// One draw of a mesh with a state and uniforms. The scene sets the matrices of a plain draw
/// itself (usually through Scene::setMvpUniform); the transformed kinds derived from it get theirs
/// from Scene::updateMeshTransformations. Every field may be replaced at run time.
class DrawMeshCommand : public Command {
public:
    /// What to draw.
    std::shared_ptr<Mesh> mesh;
    /// Values for the shader, positionally: element i feeds the shader's uniform i.
    std::vector<std::shared_ptr<UniformValue>> uniforms;
    /// Shader, blending, depth, culling and vertex layout.
    std::shared_ptr<DrawMeshState> state;
    /// How the indices form primitives.
    PrimitiveType primitiveType;
    /// Number of primitives, -1 for all the mesh holds; the GL renderer always draws the whole mesh.
    std::int32_t primitiveCount;
    /// Wishes to the renderer; never null, empty by default, possibly shared with other draws.
    /// The GL renderer does not read them.
    std::shared_ptr<HintList> hints = std::make_shared<HintList>();

    /// A draw of `mesh` with the given uniforms, state and primitives.
    DrawMeshCommand(std::shared_ptr<Mesh> mesh, std::vector<std::shared_ptr<UniformValue>> uniforms,
                    std::shared_ptr<DrawMeshState> state, PrimitiveType primitiveType, std::int32_t primitiveCount);

    /// DRAW_MESH, for the transformed kinds too.
    CommandType type() const override { return CommandType::DRAW_MESH; }
};

} // namespace engine::commands
