#pragma once

#include <memory>
#include <string>

#include "engine/utils/DynamicTimeOfDay.h"
#include "renderer/SceneRenderer.h"

namespace renderer::scenes {

/// The renderer of the Nivalis scene, the one the desktop host makes. Besides its uniform table
/// it keeps the scene at the time of day: the host's choice ("auto" follows the wall clock)
/// goes through `dynamicTimeOfDay` into the scene's settings. The host polls
/// `updateDynamicTimeOfDay` every 3 seconds on the thread that draws, and calls it at once after
/// changing the choice with `dynamicTimeOfDay.setTimeOfDay`.
class NivalisRenderer : public SceneRenderer {
public:
    /// The seconds between two polls of the time of day, for the host's timer.
    static constexpr double TIME_OF_DAY_POLL_SECONDS = 3.0;

    /// Loads everything as SceneRenderer does, then takes `sceneTime` (the stored setting:
    /// "auto", "night", "dawn", "day" or "dusk"; anything else counts as "auto") as the choice
    /// and updates the time of day once, so that the first frame has it right. `clock` replaces
    /// the local wall clock of the time of day (tests); empty for the real one.
    NivalisRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot, Options options,
                    const std::string& sceneTime = "auto", engine::utils::DynamicTimeOfDay::Clock clock = {});

    /// The rows "Vignette", "FullscreenQuad", "Diffuse", "Color", "ColorAnimatedTextureChunked",
    /// "Palette", "SkyDither", "DiffuseAnimatedTextureChunked", "Cloud", "CausticsWater" and
    /// "DiffuseZFog"; one table shared by all instances.
    const uniforms::ShaderUniforms& shaderUniforms() const override;
    /// The same table, without an instance.
    static const uniforms::ShaderUniforms& uniforms();

    /// Brings the time of day up to date and writes it into the scene's settings: Day -> Day,
    /// Night -> Night, Dawn -> Sunrise, Dusk -> Sunset (anything else Day); nothing when no
    /// time of day is known yet. The scene must be a NivalisScene, or the process stops.
    void updateDynamicTimeOfDay();

    engine::utils::DynamicTimeOfDay dynamicTimeOfDay;
};

} // namespace renderer::scenes
