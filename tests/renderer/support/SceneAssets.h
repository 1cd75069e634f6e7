#pragma once

#include <string>

#include "engine/Scene.h"
#include "tests/renderer/support/TestResources.h"

namespace renderer::test {

/// Stand-in assets for a real scene, so that its renderer can start on the fake: a small model
/// pair per mesh, a file per texture in the kind its format asks for (a 4 x 4 WebP image, raw
/// half floats of the described size, ASTC files with void blocks for each level), the vignette
/// model, and a source pair for every shader the scene and the renderer name.
class SceneAssets {
public:
    SceneAssets() = delete;

    /// Writes everything that `scene` names below `resourcesRoot` of `resources`; the stand-in
    /// shader sources only where `shaders` is true.
    static void write(const engine::Scene& scene, const TestResources& resources, const std::string& resourcesRoot,
                      bool shaders = true);
};

} // namespace renderer::test
