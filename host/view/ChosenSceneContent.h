#pragma once

#include "host/view/SceneContent.h"

#include <QString>

#include <functional>
#include <memory>

namespace engine {
class Scene;
}

namespace host::view {

/// The content the desktop host shows: the scene the user chose, one of the four, and a renderer
/// of it over the resources' folder of that scene each time a view appears. A new choice makes a
/// new scene with the user's vignette and camera period; its renderer comes with the next view.
///
/// The renderers of every content showing the same scene in one GL share group (a monitor
/// each) share one asset table: the first loads the meshes, textures and programs, the others
/// take them as they are, and the last one to go frees them. Each keeps its own scene, pipelines,
/// blur chains and multisampled target.
class ChosenSceneContent : public SceneContent {
public:
    /// Starts with the scene of `sceneName` (unknown names show Nivalis), flying its camera path
    /// number `cameraPath` (modulo its number of paths; each monitor starts on another), as does
    /// every later choice. Renderers read their assets from `resourcesDirectory`; Nivalis starts
    /// with the time of day that `sceneTime` gives at that moment (the stored setting).
    ChosenSceneContent(QString resourcesDirectory, const QString& sceneName, std::function<QString()> sceneTime,
                       int cameraPath = 0);
    ~ChosenSceneContent() override;

    std::unique_ptr<FrameRenderer> makeRenderer() override;
    bool setScene(const QString& name) override;
    void setSceneSettings(bool vignette, float cameraPeriod) override;

    /// The name of the scene shown ("nivalis", "spirelight", "betonia" or "example").
    const QString& sceneName() const { return sceneName_; }
    /// The scene.
    engine::Scene& scene() const { return *scene_; }

private:
    QString resourcesDirectory_;
    std::function<QString()> sceneTime_;
    QString sceneName_;
    std::shared_ptr<engine::Scene> scene_;
    bool vignette_ = true;
    float cameraPeriod_ = 1.0f;
    bool settingsGiven_ = false;
    int cameraPath_ = 0;
};

} // namespace host::view
