#include "engine/timers/TimersMap.h"

#include "engine/IllegalStateError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

using engine::timers::TimerParams;
using engine::timers::TimersMap;

enum class Timers { Camera, Water, Clouds };
enum class OtherTimers { Camera, Water };

constexpr float kEps = 1e-6f;

TEST(TimersMapTest, RotatingTimerWrapsAndKeepsTheFractionOfALongFrame) {
    TimersMap timers;
    timers.add(Timers::Water, 1000.0f);
    EXPECT_FLOAT_EQ(timers.get(Timers::Water), 0.0f);

    // The first call counts the whole clock reading: 5 laps, wrapped to 0.
    timers.iterate(5000.0);
    EXPECT_NEAR(timers.get(Timers::Water), 0.0f, kEps);
    timers.iterate(5250.0);
    EXPECT_NEAR(timers.get(Timers::Water), 0.25f, kEps);

    // From 0.75, a frame of 1.5 periods lands on 0.25.
    timers.set(Timers::Water, 0.75f);
    timers.iterate(5250.0 + 1500.0);
    EXPECT_NEAR(timers.get(Timers::Water), 0.25f, kEps);
    EXPECT_DOUBLE_EQ(timers.lastTime, 6750.0);
}

TEST(TimersMapTest, FirstCallTreatsTheClockReadingAsElapsedTime) {
    TimersMap timers;
    timers.add(Timers::Camera, 1000.0f);
    timers.add(Timers::Water, 400.0f, false);
    timers.iterate(123456.75);
    // 123.45675 laps: the fraction stays; the non-rotating timer is done at once.
    EXPECT_NEAR(timers.get(Timers::Camera), 0.45675f, 2e-5f);
    EXPECT_FLOAT_EQ(timers.get(Timers::Water), 1.0f);
}

TEST(TimersMapTest, NonRotatingTimerStopsAtOneAndRestartsWithSet) {
    TimersMap timers;
    timers.add(Timers::Clouds, 1000.0f, false);
    timers.iterate(400.0);
    EXPECT_NEAR(timers.get(Timers::Clouds), 0.4f, kEps);
    timers.iterate(5000.0);
    EXPECT_FLOAT_EQ(timers.get(Timers::Clouds), 1.0f);
    timers.iterate(9000.0);
    EXPECT_FLOAT_EQ(timers.get(Timers::Clouds), 1.0f);

    timers.set(Timers::Clouds, 0.0f);
    timers.iterate(9300.0);
    EXPECT_NEAR(timers.get(Timers::Clouds), 0.3f, kEps);
}

TEST(TimersMapTest, BackwardClockMovesPhasesBackAndCanGoNegative) {
    TimersMap timers;
    timers.add(Timers::Water, 1000.0f);
    timers.add(Timers::Clouds, 1000.0f, false);
    timers.iterate(5000.0);
    timers.iterate(5250.0);
    timers.set(Timers::Clouds, 0.5f);

    timers.iterate(4900.0); // 350 ms back
    EXPECT_NEAR(timers.get(Timers::Water), -0.1f, kEps);
    EXPECT_NEAR(timers.get(Timers::Clouds), 0.15f, kEps);
    EXPECT_LT(timers.get(Timers::Water), 0.0f);
}

TEST(TimersMapTest, UnknownKeyFailsWithTimerNotFound) {
    TimersMap timers;
    timers.add(Timers::Camera, 1000.0f);
    auto expectNotFound = [](auto&& call) {
        try {
            call();
            FAIL() << "expected engine::IllegalStateError";
        } catch (const engine::IllegalStateError& e) {
            EXPECT_EQ(std::string(e.what()), "Timer not found");
        }
    };
    expectNotFound([&] { timers.get(Timers::Water); });
    expectNotFound([&] { timers.set(Timers::Water, 0.5f); });
    // Same underlying value, other enumeration: a different key.
    expectNotFound([&] { timers.get(OtherTimers::Camera); });
    expectNotFound([&] { timers.set(OtherTimers::Camera, 0.5f); });
}

TEST(TimersMapTest, KeysAreTheConstantsOfTheirOwnEnumeration) {
    TimersMap timers;
    timers.add(Timers::Water, 1000.0f);
    timers.add(OtherTimers::Water, 4000.0f);
    EXPECT_EQ(timers.size(), 2u);
    timers.iterate(1000.0 + 500.0);
    EXPECT_NEAR(timers.get(Timers::Water), 0.5f, kEps);
    EXPECT_NEAR(timers.get(OtherTimers::Water), 0.375f, kEps);

    timers.set(OtherTimers::Water, 0.125f);
    EXPECT_NEAR(timers.get(Timers::Water), 0.5f, kEps);
    EXPECT_FLOAT_EQ(timers.get(OtherTimers::Water), 0.125f);
}

TEST(TimersMapTest, AddingAKeyAgainReplacesItsEntry) {
    TimersMap timers;
    timers.add(Timers::Water, 1000.0f);
    timers.iterate(250.0);
    timers.add(Timers::Water, 2000.0f, false);
    EXPECT_EQ(timers.size(), 1u);
    EXPECT_EQ(timers.params(Timers::Water), TimerParams(0.0f, 2000.0f, false));
    timers.iterate(1250.0);
    EXPECT_NEAR(timers.get(Timers::Water), 0.5f, kEps);
}

TEST(TimersMapTest, ZeroPeriodGivesNaN) {
    TimersMap timers;
    timers.add(Timers::Water, 0.0f);
    timers.iterate(10.0);
    EXPECT_TRUE(std::isnan(timers.get(Timers::Water)));
}

TEST(TimerParamsTest, ValueClass) {
    const TimerParams a(0.25f, 1000.0f, true);
    EXPECT_EQ(a.toString(), "TimerParams(timer=0.25, period=1000.0, rotating=true)");
    EXPECT_EQ(TimerParams(0.0f, 3.5f, false).toString(), "TimerParams(timer=0.0, period=3.5, rotating=false)");
    EXPECT_EQ(a, TimerParams(0.25f, 1000.0f, true));
    EXPECT_EQ(a.hash(), TimerParams(0.25f, 1000.0f, true).hash());
    EXPECT_EQ(std::hash<TimerParams>{}(a), a.hash());
    EXPECT_NE(a, TimerParams(0.25f, 1000.0f, false));
    EXPECT_NE(a, TimerParams(0.5f, 1000.0f, true));
}

} // namespace
