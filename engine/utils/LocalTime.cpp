#include "engine/utils/LocalTime.h"

#include <ctime>

namespace engine::utils {

namespace {

std::tm localNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    // localtime_r does not promise to pick up a changed TZ by itself; tzset makes it do so.
    tzset();
    localtime_r(&now, &local);
    return local;
}

} // namespace

std::int32_t getCurrentHour() { return localNow().tm_hour; }

std::int32_t getCurrentMinute() { return localNow().tm_min; }

} // namespace engine::utils
