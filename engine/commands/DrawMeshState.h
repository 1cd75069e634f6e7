#pragma once

#include <memory>
#include <utility>

#include "engine/Blending.h"
#include "engine/CullFace.h"
#include "engine/DepthMode.h"
#include "engine/Shader.h"
#include "engine/VertexAttributesDescriptor.h"

namespace engine::commands {

/// Everything about a draw other than its data: shader, blending, depth, culling and vertex
/// layout. Scenes share one state between many draws, and the renderer caches its pipelines by
/// the identity of the state object, so a state is held through std::shared_ptr and, once
/// drawn, not edited.
class DrawMeshState {
public:
    /// The shader.
    std::shared_ptr<Shader> shader;
    /// Blend state; most states use BLENDING_NONE.
    std::shared_ptr<Blending> blending;
    /// Depth test and write.
    std::shared_ptr<DepthMode> depthMode;
    /// Face culling.
    CullFace culling;
    /// The vertex layout for the shader; null where the mesh's own layout serves.
    std::shared_ptr<VertexAttributesDescriptor> vertexAttributes;

    /// A state of the five parts; there are no defaults.
    DrawMeshState(std::shared_ptr<Shader> shader, std::shared_ptr<Blending> blending,
                  std::shared_ptr<DepthMode> depthMode, CullFace culling,
                  std::shared_ptr<VertexAttributesDescriptor> vertexAttributes)
        : shader(std::move(shader)), blending(std::move(blending)), depthMode(std::move(depthMode)),
          culling(culling), vertexAttributes(std::move(vertexAttributes)) {}
};

} // namespace engine::commands
