#include "engine/utils/DynamicTimeOfDay.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using engine::utils::DynamicTimeOfDay;
using engine::utils::TimeOfDay;

/// A wall clock that tests set by hand.
struct FakeClock {
    int hour = 12;
    int minute = 0;
    DynamicTimeOfDay::Clock reader() {
        return [this] { return std::pair<int, int>(hour, minute); };
    }
};

TEST(DynamicTimeOfDayTest, EveryMinuteOfTheDayFallsInItsHourRange) {
    // 05:59 night, 06:00 dawn, 09:00 day, 17:00 dusk, 19:00 night: the fractions of the day are
    // single-precision floats, and 17:00 and 19:00 land exactly on the upper side.
    FakeClock clock;
    DynamicTimeOfDay time(clock.reader());
    EXPECT_FALSE(time.dynamicTimeOfDay().has_value());
    for (int h = 0; h < 24; ++h) {
        const TimeOfDay expected = h < 6 ? TimeOfDay::Night
                                   : h < 9 ? TimeOfDay::Dawn
                                   : h < 17 ? TimeOfDay::Day
                                   : h < 19 ? TimeOfDay::Dusk
                                            : TimeOfDay::Night;
        for (int m = 0; m < 60; ++m) {
            clock.hour = h;
            clock.minute = m;
            time.updateTimeOfDay();
            ASSERT_EQ(time.dynamicTimeOfDay(), expected) << h << ":" << m;
        }
    }
}

TEST(DynamicTimeOfDayTest, ChangesAreReportedOnlyWhenTheClockMovesThePhase) {
    FakeClock clock{5, 58};
    DynamicTimeOfDay time(clock.reader());
    EXPECT_TRUE(time.updateTimeOfDay()); // absent -> Night counts as a change
    EXPECT_FALSE(time.updateTimeOfDay());
    clock.minute = 59;
    EXPECT_FALSE(time.updateTimeOfDay());
    clock.hour = 6;
    clock.minute = 0;
    EXPECT_TRUE(time.updateTimeOfDay());
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Dawn);
    EXPECT_FALSE(time.updateTimeOfDay());
}

} // namespace
