#pragma once

#include "host/view/SceneContent.h"

#include <QString>

#include <functional>
#include <memory>

namespace scenes::nivalis {
class NivalisScene;
}

namespace host::view {

/// The content the desktop host shows: one Nivalis scene for the life of the process, and a
/// Nivalis renderer of it over the resources' "nivalis" folder each time a view appears.
class NivalisContent : public SceneContent {
public:
    /// The scene, made now, flying its camera path number `cameraPath` (modulo the number of
    /// paths; each monitor starts on another). Renderers read their assets from
    /// `resourcesDirectory` and start with the time of day that `sceneTime` gives at that
    /// moment (the stored setting).
    NivalisContent(QString resourcesDirectory, std::function<QString()> sceneTime, int cameraPath = 0);
    ~NivalisContent() override;

    std::unique_ptr<FrameRenderer> makeRenderer() override;
    void setSceneSettings(bool vignette, float cameraPeriod) override;

    /// The scene.
    scenes::nivalis::NivalisScene& scene() const { return *scene_; }

    /// The folder of the scene's assets inside the resources.
    static constexpr const char* kResourcesRoot = "nivalis";

private:
    QString resourcesDirectory_;
    std::function<QString()> sceneTime_;
    std::shared_ptr<scenes::nivalis::NivalisScene> scene_;
};

} // namespace host::view
