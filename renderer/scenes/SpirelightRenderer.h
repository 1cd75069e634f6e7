#pragma once

#include <memory>
#include <string>

#include "renderer/SceneRenderer.h"

namespace renderer::scenes {

/// The renderer of the Spirelight scene, the night city: SceneRenderer with the scene's uniform
/// table (SpirelightUniforms). Its aircraft and red lights are point sprites whose size the
/// vertex shader writes, so the context is set to take point sizes from the program.
///
/// The sky cube map ("cubemaps/1/sky") is loaded as a plain 2D texture holding the six faces one
/// above the other (+x, -x, +y, -y, +z, -z, each square); the "Building" shader picks the face
/// and the texel itself, so the generic loaders and texture units need no cube-map case.
class SpirelightRenderer : public SceneRenderer {
public:
    SpirelightRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot,
                       Options options);

    /// The table of SpirelightUniforms.
    const uniforms::ShaderUniforms& shaderUniforms() const override;
};

} // namespace renderer::scenes
