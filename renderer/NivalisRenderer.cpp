#include "renderer/NivalisRenderer.h"

#include "renderer/Fatal.h"
#include "renderer/UniformTables.h"
#include "scenes/nivalis/NivalisScene.h"

namespace renderer {

const ShaderUniforms& NivalisRenderer::uniforms() {
    static const ShaderUniforms TABLE = {
        {"Vignette", UniformTables::vignette()},
        {"FullscreenQuad", UniformTables::fullscreenQuad()},
        {"Diffuse", UniformTables::diffuse()},
        {"Color", UniformTables::color()},
        {"ColorAnimatedTextureChunked", UniformTables::colorAnimatedTextureChunked()},
        {"Palette", UniformTables::palette()},
        {"SkyDither", UniformTables::skyDither()},
        {"DiffuseAnimatedTextureChunked", UniformTables::diffuseAnimatedTextureChunked()},
        {"Cloud", UniformTables::cloud()},
        {"CausticsWater", UniformTables::causticsWater()},
        {"DiffuseZFog", UniformTables::diffuseZFog()},
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

const ShaderUniforms& NivalisRenderer::shaderUniforms() const { return uniforms(); }

void NivalisRenderer::updateDynamicTimeOfDay() {
    dynamicTimeOfDay.updateTimeOfDay();
    const auto current = dynamicTimeOfDay.dynamicTimeOfDay();
    if (!current) {
        return;
    }
    using Engine = engine::utils::TimeOfDay;
    using Scene = scenes::nivalis::TimeOfDay;
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
    auto* nivalis = dynamic_cast<scenes::nivalis::NivalisScene*>(scene.get());
    if (nivalis == nullptr) {
        Fatal::stop("The scene of a NivalisRenderer is no NivalisScene");
    }
    nivalis->settings.timeOfDay = mapped;
}

} // namespace renderer
