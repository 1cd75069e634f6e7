#pragma once

#include <memory>
#include <string>

#include "renderer/SceneRenderer.h"

namespace renderer::scenes {

/// The renderer of the Betonia scene: SceneRenderer with the scene's uniform table. Its clock marker
/// (DrawClockCommand) is passed over by the walk; the host draws the clock.
class BetoniaRenderer : public SceneRenderer {
public:
    BetoniaRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot, Options options);

    /// The rows "Vignette", "FullscreenQuad" and "Diffuse"; one table shared by all instances.
    const uniforms::ShaderUniforms& shaderUniforms() const override;
    /// The same table, without an instance.
    static const uniforms::ShaderUniforms& uniforms();
};

} // namespace renderer::scenes
