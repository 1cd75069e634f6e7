#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "engine/Scene.h"
#include "renderer/SceneRenderer.h"

namespace renderer::scenes {

/// The four scenes by name, and the renderer that goes with each: the one place that knows which
/// scene class, renderer class and resources folder a name means. Hosts and tools pick a scene
/// by its name ("nivalis", "spirelight", "betonia", "example"); the folder of its assets inside
/// the resources is the same name.
class SceneFactory {
public:
    SceneFactory() = delete;

    /// The names, Nivalis first (the default).
    static constexpr std::array<std::string_view, 4> NAMES = {"nivalis", "spirelight", "betonia", "example"};

    /// `name` when it is one of NAMES, else "nivalis": an unknown choice shows the default scene.
    static std::string known(std::string_view name);
    /// A new scene of the name (`known` applies). The sample scene, whose tree opens no pass of
    /// its own, comes hung under one main pass.
    static std::shared_ptr<engine::Scene> makeScene(std::string_view name);
    /// The renderer of `scene`, a scene made by `makeScene(name)`, loading its assets now from
    /// `options.resources`. `sceneTime` is the stored time-of-day choice that only Nivalis takes.
    static std::unique_ptr<SceneRenderer> makeRenderer(gl::Gl& gl, std::string_view name,
                                                       std::shared_ptr<engine::Scene> scene,
                                                       SceneRenderer::Options options,
                                                       const std::string& sceneTime = "auto");
    /// Writes the user's vignette switch and camera period into the settings of `scene`, where it
    /// has them (the sample scene has none); the scene takes them up at its next frame.
    static void applySettings(engine::Scene& scene, bool vignette, float cameraPeriod);
    /// Starts `scene` on its camera path number `path` (modulo its number of paths), so that
    /// several monitors showing the same scene fly different paths. Path 0 changes nothing.
    static void startOnPath(engine::Scene& scene, int path);
};

} // namespace renderer::scenes
