#include "renderer/scenes/SceneFactory.h"

#include <algorithm>

#include "engine/commands/MainPassCommand.h"
#include "renderer/scenes/BetoniaRenderer.h"
#include "renderer/scenes/ExampleRenderer.h"
#include "renderer/scenes/NivalisRenderer.h"
#include "renderer/scenes/SpirelightRenderer.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"

namespace renderer::scenes {

std::string SceneFactory::known(std::string_view name) {
    return std::string(std::ranges::find(NAMES, name) != NAMES.end() ? name : NAMES.front());
}

std::shared_ptr<engine::Scene> SceneFactory::makeScene(std::string_view name) {
    const std::string chosen = known(name);
    if (chosen == "spirelight") {
        return std::make_shared<::scenes::spirelight::SpirelightScene>();
    }
    if (chosen == "betonia") {
        return std::make_shared<::scenes::betonia::BetoniaScene>();
    }
    if (chosen == "example") {
        auto scene = std::make_shared<::scenes::example::ExampleScene>();
        scene->commands = {std::make_shared<engine::commands::MainPassCommand>(true, scene->commands)};
        return scene;
    }
    return std::make_shared<::scenes::nivalis::NivalisScene>();
}

std::unique_ptr<SceneRenderer> SceneFactory::makeRenderer(gl::Gl& gl, std::string_view name,
                                                          std::shared_ptr<engine::Scene> scene,
                                                          SceneRenderer::Options options, const std::string& sceneTime) {
    const std::string chosen = known(name);
    if (chosen == "spirelight") {
        return std::make_unique<SpirelightRenderer>(gl, std::move(scene), chosen, std::move(options));
    }
    if (chosen == "betonia") {
        return std::make_unique<BetoniaRenderer>(gl, std::move(scene), chosen, std::move(options));
    }
    if (chosen == "example") {
        return std::make_unique<ExampleRenderer>(gl, std::move(scene), chosen, std::move(options));
    }
    return std::make_unique<NivalisRenderer>(gl, std::move(scene), chosen, std::move(options), sceneTime);
}

namespace {

// Calls `visit` with the scene as its own class where that class has settings and a camera of its
// own (every scene but the sample valley, which comes hung under a pass of the factory's).
template <typename Visit>
void withSettledScene(engine::Scene& scene, Visit&& visit) {
    if (auto* nivalis = dynamic_cast<::scenes::nivalis::NivalisScene*>(&scene)) {
        visit(*nivalis);
    } else if (auto* spirelight = dynamic_cast<::scenes::spirelight::SpirelightScene*>(&scene)) {
        visit(*spirelight);
    } else if (auto* betonia = dynamic_cast<::scenes::betonia::BetoniaScene*>(&scene)) {
        visit(*betonia);
    }
}

} // namespace

void SceneFactory::applySettings(engine::Scene& scene, bool vignette, float cameraPeriod) {
    withSettledScene(scene, [&](auto& concrete) {
        concrete.settings.vignette = vignette;
        concrete.settings.cameraPeriod = cameraPeriod;
    });
}

void SceneFactory::startOnPath(engine::Scene& scene, int path) {
    withSettledScene(scene, [path](auto& concrete) {
        engine::camera::CameraPathAnimator& camera = concrete.cameraAnimator;
        const int paths = static_cast<int>(camera.cameras.size());
        if (path > 0 && paths > 1) {
            camera.currentCamera = path % paths;
            camera.updateCurrentCamera();
        }
    });
}

} // namespace renderer::scenes
