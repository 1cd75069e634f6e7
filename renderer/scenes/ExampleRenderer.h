#pragma once

#include <memory>
#include <string>

#include "renderer/SceneRenderer.h"

namespace renderer::scenes {

/// The renderer of the Example scene: SceneRenderer with the scene's uniform table.
class ExampleRenderer : public SceneRenderer {
public:
    ExampleRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot, Options options);

    /// The rows "Vignette", "FullscreenQuad", "Diffuse", "Color", "ColorAnimatedTextureChunked" and
    /// "Water"; one table shared by all instances.
    const uniforms::ShaderUniforms& shaderUniforms() const override;
    /// The same table, without an instance.
    static const uniforms::ShaderUniforms& uniforms();
};

} // namespace renderer::scenes
