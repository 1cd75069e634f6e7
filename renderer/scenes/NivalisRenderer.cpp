#include "renderer/scenes/NivalisRenderer.h"

#include "renderer/Fatal.h"
#include "renderer/uniforms/UniformTables.h"
#include "scenes/nivalis/NivalisScene.h"

namespace renderer::scenes {

const uniforms::ShaderUniforms& NivalisRenderer::uniforms() {
    static const uniforms::ShaderUniforms TABLE = {
        {"Vignette", uniforms::UniformTables::vignette()},
        {"FullscreenQuad", uniforms::UniformTables::fullscreenQuad()},
        {"Diffuse", uniforms::UniformTables::diffuse()},
        {"Color", uniforms::UniformTables::color()},
        {"ColorAnimatedTextureChunked", uniforms::UniformTables::colorAnimatedTextureChunked()},
        {"Palette", uniforms::UniformTables::palette()},
        {"SkyDither", uniforms::UniformTables::skyDither()},
        {"DiffuseAnimatedTextureChunked", uniforms::UniformTables::diffuseAnimatedTextureChunked()},
        {"Cloud", uniforms::UniformTables::cloud()},
        {"CausticsWater", uniforms::UniformTables::causticsWater()},
        {"DiffuseZFog", uniforms::UniformTables::diffuseZFog()},
    };
    return TABLE;
}

NivalisRenderer::NivalisRenderer(gl::Gl& gl_, std::shared_ptr<engine::Scene> scene_, std::string resourcesRoot_,
                                 Options options_, const std::string& sceneTime,
                                 engine::utils::DynamicTimeOfDay::Clock clock)
    : SceneRenderer(gl_, std::move(scene_), std::move(resourcesRoot_), std::move(options_), uniforms()),
      dynamicTimeOfDay(std::move(clock)) {
    dynamicTimeOfDay.setTimeOfDay(engine::utils::fromString(sceneTime));
    updateDynamicTimeOfDay();
}

const uniforms::ShaderUniforms& NivalisRenderer::shaderUniforms() const { return uniforms(); }

void NivalisRenderer::updateDynamicTimeOfDay() {
    dynamicTimeOfDay.updateTimeOfDay();
    const auto current = dynamicTimeOfDay.dynamicTimeOfDay();
    if (!current) {
        return;
    }
    using Engine = engine::utils::TimeOfDay;
    using Scene = ::scenes::nivalis::TimeOfDay;
    Scene mapped = Scene::Day;
    if (*current == Engine::Day) {
        mapped = Scene::Day;
    } else if (*current == Engine::Night) {
        mapped = Scene::Night;
    } else if (*current == Engine::Dawn) {
        mapped = Scene::Sunrise;
    } else if (*current == Engine::Dusk) {
        mapped = Scene::Sunset;
    }
    auto* nivalis = dynamic_cast<::scenes::nivalis::NivalisScene*>(scene.get());
    if (nivalis == nullptr) {
        Fatal::stop("The scene of a NivalisRenderer is no NivalisScene");
    }
    nivalis->settings.timeOfDay = mapped;
}

} // namespace renderer::scenes
