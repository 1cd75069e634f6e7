#include "host/view/FrameClock.h"

#include "tests/host/app/TestApplication.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace host::view {
namespace {

TEST(FrameClockTest, PeriodIsWholeMillisecondsOfTheRate) {
    FrameClock clock;
    EXPECT_EQ(clock.framesPerSecond(), 30);
    EXPECT_EQ(clock.intervalMs(), 33);
    clock.setFramesPerSecond(20);
    EXPECT_EQ(clock.intervalMs(), 50);
    clock.setFramesPerSecond(60);
    EXPECT_EQ(clock.intervalMs(), 16);
    clock.setFramesPerSecond(0);
    EXPECT_EQ(clock.framesPerSecond(), 1);
    EXPECT_EQ(clock.intervalMs(), 1000);
}

TEST(FrameClockTest, StartsPausedWithNoTimerArmed) {
    testing::testApplication();
    FrameClock clock;
    QSignalSpy ticks(&clock, &FrameClock::tick);
    EXPECT_TRUE(clock.isPaused());
    EXPECT_FALSE(clock.isRunning());
    QTest::qWait(100);
    EXPECT_EQ(ticks.count(), 0);
}

TEST(FrameClockTest, TicksWhileRunningAndNeverWhilePaused) {
    testing::testApplication();
    FrameClock clock;
    clock.setFramesPerSecond(60);
    QSignalSpy ticks(&clock, &FrameClock::tick);
    clock.setPaused(false);
    EXPECT_TRUE(clock.isRunning());
    EXPECT_TRUE(ticks.wait(1000));

    clock.setPaused(true);
    EXPECT_FALSE(clock.isRunning());
    const int before = ticks.count();
    QTest::qWait(150);
    EXPECT_EQ(ticks.count(), before);
    EXPECT_EQ(clock.ticks(), static_cast<std::uint64_t>(before));

    // A new rate while paused arms nothing.
    clock.setFramesPerSecond(20);
    EXPECT_FALSE(clock.isRunning());
}

TEST(FrameClockTest, PacedByPresentationTicksOncePerPresentedFrame) {
    testing::testApplication();
    FrameClock clock;
    clock.setWaitsForPresentation(true);
    clock.setFramesPerSecond(50);
    QSignalSpy ticks(&clock, &FrameClock::tick);
    clock.setPaused(false);
    ASSERT_TRUE(ticks.wait(1000));

    // Nothing was presented (a hidden surface): no further tick, no timer armed.
    QTest::qWait(120);
    EXPECT_EQ(ticks.count(), 1);
    EXPECT_FALSE(clock.isRunning());

    // Presented long after the tick: the next one is due at once; then it waits again.
    clock.presented();
    EXPECT_TRUE(ticks.wait(100));
    QTest::qWait(120);
    EXPECT_EQ(ticks.count(), 2);

    // Paused, a late presentation arms nothing.
    clock.setPaused(true);
    clock.presented();
    EXPECT_FALSE(clock.isRunning());
}

} // namespace
} // namespace host::view
