#pragma once

#include <cstdint>

namespace engine::utils {

/// The hour, 0 to 23, of the present instant in the system's local time zone (TZ honoured).
std::int32_t getCurrentHour();

/// The minute, 0 to 59, of the present instant in the system's local time zone.
std::int32_t getCurrentMinute();

} // namespace engine::utils
