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

TEST(TimeOfDayTest, NamesAndParsing) {
    EXPECT_EQ(toString(TimeOfDay::Auto), "Auto");
    EXPECT_EQ(toString(TimeOfDay::Night), "Night");
    EXPECT_EQ(toString(TimeOfDay::Dawn), "Dawn");
    EXPECT_EQ(toString(TimeOfDay::Day), "Day");
    EXPECT_EQ(toString(TimeOfDay::Dusk), "Dusk");
    EXPECT_EQ(static_cast<int>(TimeOfDay::Dusk), 4);

    EXPECT_EQ(engine::utils::fromString("auto"), TimeOfDay::Auto);
    EXPECT_EQ(engine::utils::fromString("night"), TimeOfDay::Night);
    EXPECT_EQ(engine::utils::fromString("dawn"), TimeOfDay::Dawn);
    EXPECT_EQ(engine::utils::fromString("day"), TimeOfDay::Day);
    EXPECT_EQ(engine::utils::fromString("dusk"), TimeOfDay::Dusk);
    // Exact comparison: anything else falls back to Auto.
    EXPECT_EQ(engine::utils::fromString("Day"), TimeOfDay::Auto);
    EXPECT_EQ(engine::utils::fromString("Auto"), TimeOfDay::Auto);
    EXPECT_EQ(engine::utils::fromString(" dusk"), TimeOfDay::Auto);
    EXPECT_EQ(engine::utils::fromString(""), TimeOfDay::Auto);
}

TEST(DynamicTimeOfDayTest, PhaseBoundariesOfTheClock) {
    FakeClock clock;
    DynamicTimeOfDay time(clock.reader());
    EXPECT_FALSE(time.dynamicTimeOfDay().has_value());
    const struct {
        int hour, minute;
        TimeOfDay phase;
    } cases[] = {
        {0, 0, TimeOfDay::Night},  {5, 59, TimeOfDay::Night}, {6, 0, TimeOfDay::Dawn},
        {8, 59, TimeOfDay::Dawn},  {9, 0, TimeOfDay::Day},    {16, 59, TimeOfDay::Day},
        {17, 0, TimeOfDay::Dusk},  {18, 59, TimeOfDay::Dusk}, {19, 0, TimeOfDay::Night},
        {23, 59, TimeOfDay::Night},
    };
    for (const auto& c : cases) {
        clock.hour = c.hour;
        clock.minute = c.minute;
        time.updateTimeOfDay();
        EXPECT_EQ(time.dynamicTimeOfDay(), c.phase) << c.hour << ":" << c.minute;
    }
}

TEST(DynamicTimeOfDayTest, EveryMinuteOfTheDayFallsInItsHourRange) {
    FakeClock clock;
    DynamicTimeOfDay time(clock.reader());
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

TEST(DynamicTimeOfDayTest, FixedChoiceIsCopiedAndNeverReportsAChange) {
    FakeClock clock{12, 0};
    DynamicTimeOfDay time(clock.reader());
    time.setTimeOfDay(TimeOfDay::Dusk);
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Dusk);
    EXPECT_FALSE(time.updateTimeOfDay());
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Dusk);

    time.setTimeOfDay(TimeOfDay::Night);
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Night);
    EXPECT_FALSE(time.updateTimeOfDay());

    // Back to Auto at noon: the clock takes over at once.
    time.setTimeOfDay(TimeOfDay::Auto);
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Day);
    EXPECT_FALSE(time.updateTimeOfDay());
}

TEST(DynamicTimeOfDayTest, FromFixedDuskToAutoAtSixPmKeepsDuskWithoutAChange) {
    FakeClock clock{18, 0};
    DynamicTimeOfDay time(clock.reader());
    time.setTimeOfDay(TimeOfDay::Dusk);
    time.setTimeOfDay(TimeOfDay::Auto);
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Dusk);
    EXPECT_FALSE(time.updateTimeOfDay());
    clock.hour = 19;
    EXPECT_TRUE(time.updateTimeOfDay());
    EXPECT_EQ(time.dynamicTimeOfDay(), TimeOfDay::Night);
}

} // namespace
