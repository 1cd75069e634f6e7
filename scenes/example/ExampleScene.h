#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/Scene.h"
#include "engine/animation/TextureAnimationChunked.h"
#include "engine/camera/CameraPathAnimator.h"
#include "engine/timers/TimersMap.h"

namespace scenes::example {

/// The engine's sample: a small flat-shaded valley with a rock, hills, water, a sun and an
/// animated animal, built in the plainest way as the starting point for a new scene. It has no
/// settings. Most draws are transformed draws that the base class places; the animal and the
/// textured test model are plain draws whose matrices `animate` writes itself.
class ExampleScene : public engine::Scene {
public:
    using UniformList = std::vector<std::shared_ptr<engine::commands::UniformValue>>;

    /// All nine timers of the scene.
    engine::timers::TimersMap timers;
    /// The camera: seven paths of 22 s (11 s at a coefficient of 2), 1.1 s flights, eased.
    engine::camera::CameraPathAnimator cameraAnimator;
    /// Declared for hosts that animate the field of view; not read.
    float FOV_TRANSITION = 20.0f;
    /// Two pi, kept beside the constants; the frame computes with pi.
    float TWO_PI = 6.2831855f;

    /// Sample typed collections, with no part in the picture.
    std::vector<float> arr1{1.0f, 2.0f, 3.0f};
    /// Sample integers.
    std::vector<std::int32_t> arr2{1, 2, 3};
    /// Sample strings.
    std::vector<std::string> arr3{"a", "b", "c"};
    /// Sample flags.
    std::vector<bool> arr4{true, false};
    /// A sample map.
    std::map<std::string, float> map8{{"x", 1.0f}, {"y", 2.0f}, {"zz", 3.0f}};

    /// The animal's vertex animation: 362 vertices a row, 18 poses, one chunk (texture height 19).
    engine::animation::TextureAnimationChunked animationAnimal{362, 362, 18};
    /// The animal's uniforms: matrix, colour, texture width, 1 / texture height, animation
    /// texture, animation vector.
    UniformList uniformsAnimated;
    /// The textured test model's uniforms: matrix, texture.
    UniformList uniformsDiffuseTest;
    /// The water highlights' uniforms: matrix, colour, phase in radians.
    UniformList uniformsWaterHighlights;

    /// Builds the asset lists, the timers, the camera on path 0 and the tree.
    ExampleScene();

    /// Does nothing: the tree is complete after construction.
    void initialize() override;
    /// The frame: timers, camera, animate(), then `lastFrameTime`.
    void updateTimers(double time) override;

    /// Writes one frame: projection, view, the transformed draws' matrices, the test model, the
    /// animal (which plays through 1/1.1 of its period and rests in its first pose for the rest)
    /// and the water's phase.
    void animate();

private:
    static constexpr float kCameraSpeed = 1000000.0f;
    static constexpr float kCameraMinDuration = 11000.0f;
    static constexpr float kCameraTransitionDuration = 1100.0f;

    void buildTree();
};

} // namespace scenes::example
