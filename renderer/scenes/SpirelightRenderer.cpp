#include "renderer/scenes/SpirelightRenderer.h"

#include "renderer/scenes/SpirelightUniforms.h"

namespace renderer::scenes {

SpirelightRenderer::SpirelightRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_,
                                       std::string resourcesRoot_, Options options_)
    : SceneRenderer(gl_, std::move(scene_), std::move(resourcesRoot_), std::move(options_),
                    SpirelightUniforms::table()) {
    // The sprites' sizes come from gl_PointSize; the switch is the context's and stays on.
    gl.enable(GL_PROGRAM_POINT_SIZE);
}

const uniforms::ShaderUniforms& SpirelightRenderer::shaderUniforms() const { return SpirelightUniforms::table(); }

} // namespace renderer::scenes
