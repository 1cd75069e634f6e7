#include "engine/utils/DynamicTimeOfDay.h"
#include "engine/utils/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace {

/// Sets TZ for the duration of a test and puts the old value back afterwards.
class TimeZone {
public:
    explicit TimeZone(const char* zone) {
        if (const char* old = std::getenv("TZ")) {
            saved = old;
        }
        set(zone);
    }
    ~TimeZone() {
        if (saved) {
            set(saved->c_str());
        } else {
            unsetenv("TZ");
            tzset();
        }
    }
    static void set(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }

private:
    std::optional<std::string> saved;
};

int minutesOfDay(int hour, int minute) { return hour * 60 + minute; }

TEST(LocalTimeTest, HourAndMinuteFollowTheTimeZone) {
    TimeZone guard("UTC0");
    for (int attempt = 0; attempt < 3; ++attempt) {
        const std::time_t before = std::time(nullptr);
        TimeZone::set("UTC0");
        const int utc = minutesOfDay(engine::utils::getCurrentHour(), engine::utils::getCurrentMinute());
        // Five and a half hours east of UTC, written the POSIX way (offsets count westwards).
        TimeZone::set("<+0530>-5:30");
        const int east = minutesOfDay(engine::utils::getCurrentHour(), engine::utils::getCurrentMinute());
        TimeZone::set("<-03>3");
        const int west = minutesOfDay(engine::utils::getCurrentHour(), engine::utils::getCurrentMinute());
        const std::time_t after = std::time(nullptr);
        if (before / 60 != after / 60) {
            continue; // a minute turned over in between; read again
        }
        std::tm expected{};
        gmtime_r(&before, &expected);
        EXPECT_EQ(utc, minutesOfDay(expected.tm_hour, expected.tm_min));
        EXPECT_EQ(east, (utc + 330) % 1440);
        EXPECT_EQ(west, (utc - 180 + 1440) % 1440);
        return;
    }
    FAIL() << "the minute kept turning over";
}

} // namespace
