#include "host/view/ChosenSceneContent.h"

#include "renderer/scenes/NivalisRenderer.h"
#include "renderer/scenes/SceneFactory.h"
#include "renderer/gl/EpoxyGl.h"

namespace host::view {

namespace {

// A scene's renderer over the GL context that is current when it is made (the view's). The time
// of day is Nivalis's alone; the other scenes pass it by.
class SceneFrameRenderer : public FrameRenderer {
public:
    SceneFrameRenderer(const QString& name, std::shared_ptr<engine::Scene> scene, const QString& resources,
                       const QString& sceneTime)
        : renderer_(renderer::scenes::SceneFactory::makeRenderer(gl_, name.toStdString(), std::move(scene),
                                                                 options(resources), sceneTime.toStdString())),
          nivalis_(dynamic_cast<renderer::scenes::NivalisRenderer*>(renderer_.get())) {}

    void drawFrame(unsigned framebuffer, int width, int height) override {
        renderer_->drawFrame(renderer::FrameTarget{framebuffer, static_cast<double>(width), static_cast<double>(height)});
    }
    void updateDynamicTimeOfDay() override {
        if (nivalis_ != nullptr) {
            nivalis_->updateDynamicTimeOfDay();
        }
    }
    void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) override {
        if (nivalis_ != nullptr) {
            nivalis_->dynamicTimeOfDay.setTimeOfDay(timeOfDay);
            nivalis_->updateDynamicTimeOfDay();
        }
    }
    void setQuality(renderer::RenderQuality quality) override { renderer_->setQuality(quality); }

private:
    static renderer::SceneRenderer::Options options(const QString& resources) {
        renderer::SceneRenderer::Options result;
        result.resources = resources.toStdString();
        return result;
    }

    // Declared first: the renderer releases its GL objects through it.
    renderer::gl::EpoxyGl gl_;
    std::unique_ptr<renderer::SceneRenderer> renderer_;
    renderer::scenes::NivalisRenderer* nivalis_;
};

} // namespace

ChosenSceneContent::ChosenSceneContent(QString resourcesDirectory, const QString& sceneName,
                                       std::function<QString()> sceneTime, int cameraPath)
    : resourcesDirectory_(std::move(resourcesDirectory)), sceneTime_(std::move(sceneTime)),
      sceneName_(QString::fromStdString(renderer::scenes::SceneFactory::known(sceneName.toStdString()))),
      scene_(renderer::scenes::SceneFactory::makeScene(sceneName_.toStdString())), cameraPath_(cameraPath) {
    renderer::scenes::SceneFactory::startOnPath(*scene_, cameraPath_);
}

ChosenSceneContent::~ChosenSceneContent() = default;

std::unique_ptr<FrameRenderer> ChosenSceneContent::makeRenderer() {
    const QString sceneTime = sceneTime_ ? sceneTime_() : QStringLiteral("auto");
    return std::make_unique<SceneFrameRenderer>(sceneName_, scene_, resourcesDirectory_, sceneTime);
}

bool ChosenSceneContent::setScene(const QString& name) {
    const QString chosen = QString::fromStdString(renderer::scenes::SceneFactory::known(name.toStdString()));
    if (chosen == sceneName_) {
        return false;
    }
    sceneName_ = chosen;
    scene_ = renderer::scenes::SceneFactory::makeScene(chosen.toStdString());
    renderer::scenes::SceneFactory::startOnPath(*scene_, cameraPath_);
    if (settingsGiven_) {
        renderer::scenes::SceneFactory::applySettings(*scene_, vignette_, cameraPeriod_);
    }
    return true;
}

void ChosenSceneContent::setSceneSettings(bool vignette, float cameraPeriod) {
    vignette_ = vignette;
    cameraPeriod_ = cameraPeriod;
    settingsGiven_ = true;
    renderer::scenes::SceneFactory::applySettings(*scene_, vignette, cameraPeriod);
}

} // namespace host::view
