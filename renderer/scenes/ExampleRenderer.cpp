#include "renderer/scenes/ExampleRenderer.h"

#include "renderer/uniforms/UniformTables.h"

namespace renderer::scenes {

const uniforms::ShaderUniforms& ExampleRenderer::uniforms() {
    static const uniforms::ShaderUniforms TABLE = {
        {"Vignette", uniforms::UniformTables::vignette()},
        {"FullscreenQuad", uniforms::UniformTables::fullscreenQuad()},
        {"Diffuse", uniforms::UniformTables::diffuse()},
        {"Color", uniforms::UniformTables::color()},
        {"ColorAnimatedTextureChunked", uniforms::UniformTables::colorAnimatedTextureChunked()},
        {"Water", uniforms::UniformTables::water()},
    };
    return TABLE;
}

ExampleRenderer::ExampleRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                                 Options options_)
    : SceneRenderer(gl_, std::move(scene_), std::move(resourcesRoot_), std::move(options_), uniforms()) {}

const uniforms::ShaderUniforms& ExampleRenderer::shaderUniforms() const { return uniforms(); }

} // namespace renderer::scenes
