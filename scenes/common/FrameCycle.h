#pragma once

namespace scenes::common {

/// The frame that every scene runs in `updateTimers`: its timers, its camera animator, its own
/// `animate()`, and only then the clock reading stored as `lastFrameTime`, so that `animate()`
/// still sees the previous frame's time there.
template <typename SceneType> void runFrame(SceneType& scene, double time) {
    scene.timers.iterate(time);
    scene.cameraAnimator.animate(time);
    scene.animate();
    scene.lastFrameTime = time;
}

} // namespace scenes::common
