#include "host/view/NivalisContent.h"

#include "renderer/NivalisRenderer.h"
#include "renderer/gl/EpoxyGl.h"
#include "scenes/nivalis/NivalisScene.h"

namespace host::view {

namespace {

// The Nivalis renderer over the GL context that is current when it is made (the view's).
class NivalisFrameRenderer : public FrameRenderer {
public:
    NivalisFrameRenderer(const std::shared_ptr<scenes::nivalis::NivalisScene>& scene, const QString& resources,
                         const QString& sceneTime)
        : renderer_(gl_, scene, NivalisContent::kResourcesRoot, options(resources), sceneTime.toStdString()) {}

    void drawFrame(unsigned framebuffer, int width, int height) override {
        renderer_.drawFrame(renderer::FrameTarget{framebuffer, static_cast<double>(width), static_cast<double>(height)});
    }

    void updateDynamicTimeOfDay() override { renderer_.updateDynamicTimeOfDay(); }

    void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) override {
        renderer_.dynamicTimeOfDay.setTimeOfDay(timeOfDay);
        renderer_.updateDynamicTimeOfDay();
    }

private:
    static renderer::SceneRenderer::Options options(const QString& resources) {
        renderer::SceneRenderer::Options result;
        result.resources = resources.toStdString();
        return result;
    }

    // Declared first: the renderer releases its GL objects through it.
    renderer::gl::EpoxyGl gl_;
    renderer::NivalisRenderer renderer_;
};

} // namespace

NivalisContent::NivalisContent(QString resourcesDirectory, std::function<QString()> sceneTime, int cameraPath)
    : resourcesDirectory_(std::move(resourcesDirectory)), sceneTime_(std::move(sceneTime)),
      scene_(std::make_shared<scenes::nivalis::NivalisScene>()) {
    engine::camera::CameraPathAnimator& camera = scene_->cameraAnimator;
    const int paths = static_cast<int>(camera.cameras.size());
    if (cameraPath > 0 && paths > 1) {
        camera.currentCamera = cameraPath % paths;
        camera.updateCurrentCamera();
    }
}

NivalisContent::~NivalisContent() = default;

std::unique_ptr<FrameRenderer> NivalisContent::makeRenderer() {
    const QString sceneTime = sceneTime_ ? sceneTime_() : QStringLiteral("auto");
    return std::make_unique<NivalisFrameRenderer>(scene_, resourcesDirectory_, sceneTime);
}

void NivalisContent::setSceneSettings(bool vignette, float cameraPeriod) {
    scene_->settings.vignette = vignette;
    scene_->settings.cameraPeriod = cameraPeriod;
}

} // namespace host::view
