#include "renderer/BetoniaRenderer.h"

#include "renderer/UniformTables.h"

namespace renderer {

const ShaderUniforms& BetoniaRenderer::uniforms() {
    static const ShaderUniforms TABLE = {
        {"Vignette", UniformTables::vignette()},
        {"FullscreenQuad", UniformTables::fullscreenQuad()},
        {"Diffuse", UniformTables::diffuse()},
    };
    return TABLE;
}

BetoniaRenderer::BetoniaRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                                 Options options_)
    : SceneRenderer(gl_, std::move(scene_), std::move(resourcesRoot_), std::move(options_), uniforms()) {}

const ShaderUniforms& BetoniaRenderer::shaderUniforms() const { return uniforms(); }

} // namespace renderer
