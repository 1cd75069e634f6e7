#include "host/view/ChosenSceneContent.h"

#include "renderer/assets/AssetTable.h"
#include "renderer/gl/CountingGl.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/scenes/NivalisRenderer.h"
#include "renderer/scenes/SceneFactory.h"

#include <epoxy/egl.h>

#include <QDir>
#include <QOpenGLContext>
#include <QStandardPaths>

#include <map>
#include <utility>

namespace host::view {

namespace {

// What every renderer of one scene in one GL share group uses in common: one Gl, counting the
// objects made through it, and the asset table loaded by the first of them. It goes with the
// last renderer, whose context is current then.
struct SharedAssets {
    renderer::gl::EpoxyGl epoxy;
    renderer::gl::CountingGl gl{epoxy};
    renderer::assets::AssetTable table{gl};
};

// The share group of the context current now: Qt's group of the X11 views' contexts, else the
// EGL display, on which every context of the Wayland surfaces shares with the others.
const void* currentShareGroup() {
    if (QOpenGLContext* qt = QOpenGLContext::currentContext()) {
        return qt->shareGroup();
    }
    return eglGetCurrentDisplay();
}

// The assets of `scene` for the share group current now: those that another monitor's renderer
// of the scene holds, or new ones.
std::shared_ptr<SharedAssets> sharedAssets(const QString& scene) {
    static std::map<std::pair<QString, const void*>, std::weak_ptr<SharedAssets>> groups;
    std::erase_if(groups, [](const auto& entry) { return entry.second.expired(); });
    std::weak_ptr<SharedAssets>& slot = groups[{scene, currentShareGroup()}];
    std::shared_ptr<SharedAssets> shared = slot.lock();
    if (shared == nullptr) {
        shared = std::make_shared<SharedAssets>();
        slot = shared;
    }
    return shared;
}

// A scene's renderer over the GL context that is current when it is made (the view's). The time
// of day is Nivalis's alone; the other scenes pass it by.
class SceneFrameRenderer : public FrameRenderer {
public:
    SceneFrameRenderer(const QString& name, std::shared_ptr<engine::Scene> scene, const QString& resources,
                       const QString& sceneTime)
        : shared_(sharedAssets(name)),
          renderer_(renderer::scenes::SceneFactory::makeRenderer(shared_->gl, name.toStdString(), std::move(scene),
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
    renderer::SceneRenderer::Options options(const QString& resources) const {
        renderer::SceneRenderer::Options result;
        result.resources = resources.toStdString();
        result.assets = std::shared_ptr<renderer::assets::AssetTable>(shared_, &shared_->table);
        // $XDG_CACHE_HOME/nivalis: programs load from the driver's binaries on later starts.
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
        if (!cache.isEmpty()) {
            result.programCache = QDir(cache).filePath(QStringLiteral("nivalis")).toStdString();
        }
        return result;
    }

    // Declared first: the renderer releases its GL objects through its Gl.
    std::shared_ptr<SharedAssets> shared_;
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
