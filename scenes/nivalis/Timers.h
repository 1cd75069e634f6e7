#pragma once

#include <array>
#include <iterator>
#include <string_view>

#include "engine/timers/TimersMap.h"

namespace scenes::nivalis {

/// Keys of the scene's timers. Each moving element loops on a timer of its own, and no timer is
/// tied to another. `Camera` is never added: the camera keeps its own clock in its animator.
enum class Timers : int {
    Camera,
    Water,
    WaterLarge,
    CloudsAnimation,
    CloudsRotation,
    BirdsFly,
    BirdWings1,
    BirdWings2,
    Ships,
    PenguinIdle,
    PenguinIdle2,
    SealIdleAnim,
    SealWalkAnim,
    SealWalkSpline,
};

/// Every constant, in ordinal order.
inline constexpr std::array<Timers, 14> TIMERS_ENTRIES{
    Timers::Camera,      Timers::Water,        Timers::WaterLarge,   Timers::CloudsAnimation, Timers::CloudsRotation,
    Timers::BirdsFly,    Timers::BirdWings1,   Timers::BirdWings2,   Timers::Ships,           Timers::PenguinIdle,
    Timers::PenguinIdle2, Timers::SealIdleAnim, Timers::SealWalkAnim, Timers::SealWalkSpline,
};

/// The constant's exact name; empty outside the enumeration.
inline std::string_view toString(Timers value) {
    static constexpr std::string_view names[] = {
        "Camera",   "Water",      "WaterLarge",  "CloudsAnimation", "CloudsRotation",
        "BirdsFly", "BirdWings1", "BirdWings2",  "Ships",           "PenguinIdle",
        "PenguinIdle2", "SealIdleAnim", "SealWalkAnim", "SealWalkSpline",
    };
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// Adds the scene's thirteen rotating timers to `timers`, in a fixed order with their periods in
/// milliseconds: water 12 min, large water 1 min, cloud turn 5 min, cloud pulse 15 s, wing beats
/// 1 s and 0.9 s, the flock's circle 75 s, ships 200 s, penguins 5 s each, seals 4 s idle and
/// 1.9 s walking, and a seal path lap of 114 s.
void initializeTimers(engine::timers::TimersMap& timers);

} // namespace scenes::nivalis
