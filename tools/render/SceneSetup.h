#pragma once

#include <memory>
#include <string>

#include "engine/Scene.h"
#include "tools/render/RenderOptions.h"

namespace tools::render {

/// Makes the scene that the command line names and puts it where the command line says: its
/// settings, its time of day and its camera. What a scene lacks (a time of day, a settings
/// field, a camera path of that number) is an error with a message, not a silent default.
class SceneSetup {
public:
    SceneSetup() = delete;

    /// A new scene of the name: "nivalis", "spirelight", "betonia" or "example". Throws std::invalid_argument
    /// for any other name.
    static std::shared_ptr<engine::Scene> create(const std::string& name);
    /// The scene's directory inside the resources: its own name.
    static std::string resourcesRoot(const std::string& name);

    /// Writes the settings of `options` (in order), then the time of day, then puts the camera
    /// on the path and progress asked for; either of those turns the scene's automatic cuts
    /// off. A settings field of the camera coefficient restarts the path at once, as the scene
    /// would at its next frame, so that the progress asked for survives the first frame. Throws
    /// std::invalid_argument naming the field, time or path that the scene does not have.
    static void apply(engine::Scene& scene, const RenderOptions& options);
    /// Leaves the parts named in `options.hide` out of the scene's picture for good: their nodes
    /// are taken out of every list of the tree (the scene rewrites the nodes' `enabled` flags at
    /// each frame but never reads its lists back). Hiding a part twice does no harm. Throws
    /// std::invalid_argument for a scene without such parts or a part name it does not know, and
    /// engine::IllegalStateError when the scene lacks a node that it names as a field.
    static void hide(engine::Scene& scene, const RenderOptions& options);
};

} // namespace tools::render
