#pragma once

#include <array>
#include <iterator>
#include <string_view>

#include "engine/timers/TimersMap.h"

namespace scenes::example {

/// Keys of the sample scene's timers. All are added; only Water and AnimalAnimation are read.
enum class Timers : int {
    Clouds1,
    Clouds2,
    BirdsFly,
    Camera,
    Water,
    BirdWings1,
    BirdWings2,
    AnimalAnimation,
    ShootingStar,
};

/// Every constant, in ordinal order.
inline constexpr std::array<Timers, 9> TIMERS_ENTRIES{
    Timers::Clouds1,    Timers::Clouds2,    Timers::BirdsFly,        Timers::Camera,       Timers::Water,
    Timers::BirdWings1, Timers::BirdWings2, Timers::AnimalAnimation, Timers::ShootingStar,
};

/// The constant's exact name; empty outside the enumeration.
inline std::string_view toString(Timers value) {
    static constexpr std::string_view names[] = {"Clouds1",    "Clouds2",    "BirdsFly",        "Camera",      "Water",
                                                 "BirdWings1", "BirdWings2", "AnimalAnimation", "ShootingStar"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// Adds the nine rotating timers in declaration order, with periods in milliseconds: clouds
/// 250 s and 300 s, birds 25 s, camera 34 s, water 2.5 s, wings 1 s and 0.9 s, the animal 6 s,
/// shooting star 1 s.
void initializeTimers(engine::timers::TimersMap& timers);

} // namespace scenes::example
