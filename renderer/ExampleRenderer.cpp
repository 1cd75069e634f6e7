#include "renderer/ExampleRenderer.h"

#include "renderer/UniformTables.h"

namespace renderer {

const ShaderUniforms& ExampleRenderer::uniforms() {
    static const ShaderUniforms TABLE = {
        {"Vignette", UniformTables::vignette()},
        {"FullscreenQuad", UniformTables::fullscreenQuad()},
        {"Diffuse", UniformTables::diffuse()},
        {"Color", UniformTables::color()},
        {"ColorAnimatedTextureChunked", UniformTables::colorAnimatedTextureChunked()},
        {"Water", UniformTables::water()},
    };
    return TABLE;
}

ExampleRenderer::ExampleRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                                 Options options_)
    : SceneRenderer(gl_, std::move(scene_), std::move(resourcesRoot_), std::move(options_), uniforms()) {}

const ShaderUniforms& ExampleRenderer::shaderUniforms() const { return uniforms(); }

} // namespace renderer
