#pragma once

#include "host/view/SceneContent.h"

#include <QString>

#include <memory>

namespace host::view {

/// The content the desktop host shows: one Nivalis scene for the life of the process, and a
/// Nivalis renderer of it over the resources' "nivalis" folder each time a view appears.
class NivalisContent : public SceneContent {
public:
    /// The scene, made now; its assets are read from `resourcesDirectory` when a renderer is
    /// made.
    explicit NivalisContent(QString resourcesDirectory);
    ~NivalisContent() override;

    std::unique_ptr<FrameRenderer> makeRenderer() override;
    void setSceneSettings(bool vignette, float cameraPeriod) override;

    /// The folder of the scene's assets inside the resources.
    static constexpr const char* kResourcesRoot = "nivalis";

private:
    struct Scene;
    QString resourcesDirectory_;
    std::unique_ptr<Scene> scene_;
};

} // namespace host::view
