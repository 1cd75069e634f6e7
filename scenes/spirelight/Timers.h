#pragma once

#include <array>
#include <iterator>
#include <string_view>

#include "engine/timers/TimersMap.h"

namespace scenes::spirelight {

/// Keys of the scene's timers: the two circles of the aircraft lights.
enum class Timers : int {
    Planes1,
    Planes2,
};

/// Every constant, in ordinal order.
inline constexpr std::array<Timers, 2> TIMERS_ENTRIES{Timers::Planes1, Timers::Planes2};

/// The constant's exact name; empty outside the enumeration.
inline std::string_view toString(Timers value) {
    static constexpr std::string_view names[] = {"Planes1", "Planes2"};
    const auto index = static_cast<std::size_t>(value);
    return index < std::size(names) ? names[index] : std::string_view{};
}

/// Adds the two rotating timers: Planes1 with a period of 80 s, then Planes2 with 70 s.
void initializeTimers(engine::timers::TimersMap& timers);

} // namespace scenes::spirelight
