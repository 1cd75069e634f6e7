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

} // namespace
