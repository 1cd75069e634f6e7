#pragma once

#include "host/view/FrameRenderer.h"

#include <QString>

#include <memory>

namespace host::view {

/// The scene that the drawing view shows, and the way to make renderers of it. A scene outlives
/// every renderer of it: each appearing of a view makes a new renderer over the current scene.
class SceneContent {
public:
    virtual ~SceneContent() = default;

    /// A new renderer of the scene, loading its assets now; the view's GL context is current.
    /// A missing required asset ends the process, as the renderer's loaders do.
    virtual std::unique_ptr<FrameRenderer> makeRenderer() = 0;

    /// Makes the scene of `name` the one that the next renderer shows; true when that changed
    /// the scene. A content of one scene keeps it and answers false.
    virtual bool setScene(const QString& name) {
        (void)name;
        return false;
    }
    /// Writes the scene's vignette switch and camera period; it takes them up at its next frame.
    virtual void setSceneSettings(bool vignette, float cameraPeriod) = 0;
};

} // namespace host::view
