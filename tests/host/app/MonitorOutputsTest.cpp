#include "host/app/MonitorOutputs.h"

#include "tests/host/app/FakeOutput.h"
#include "tests/host/app/TestApplication.h"

#include <QTest>

#include <gtest/gtest.h>

#include <map>

namespace host::app {
namespace {

using testing::FakeOutput;

class FakeCovers : public CoverWatcher {
public:
    QSet<QUuid> covered;
    bool isCovered(const QUuid& display) const override { return covered.contains(display); }
    void set(QSet<QUuid> now) {
        covered = std::move(now);
        emit coveredChanged();
    }
};

const QUuid kLeft = QUuid::fromString(QStringLiteral("{11111111-0000-0000-0000-000000000001}"));
const QUuid kRight = QUuid::fromString(QStringLiteral("{22222222-0000-0000-0000-000000000002}"));

class MonitorOutputsTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        auto ownedCovers = std::make_unique<FakeCovers>();
        covers = ownedCovers.get();
        outputs = std::make_unique<MonitorOutputs>(
            [this](int path) {
                auto fake = std::make_unique<FakeOutput>();
                made[fake.get()] = path;
                return fake;
            },
            [this] { return monitors; }, std::move(ownedCovers));
        outputs->setPaused(false);
        outputs->createWindow();
        outputs->showWindow();
    }

    FakeOutput& fake(std::size_t index) { return static_cast<FakeOutput&>(outputs->output(index)); }
    QString lastPause(std::size_t index) { return fake(index).callsStartingWith("setPaused").last(); }
    void settle(std::vector<std::optional<QUuid>> now) {
        monitors = std::move(now);
        outputs->monitorsChanged();
        QTest::qWait(1);
    }

    std::vector<std::optional<QUuid>> monitors{kLeft, kRight};
    std::map<const FakeOutput*, int> made;
    FakeCovers* covers = nullptr;
    std::unique_ptr<MonitorOutputs> outputs;
};

TEST_F(MonitorOutputsTest, EachMonitorGetsItsOwnOutputAndCameraFollowingPlugsClockOnThePrimary) {
    outputs->setClockEnabled(true);
    outputs->setPreferredFramesPerSecond(60);
    ASSERT_EQ(outputs->outputCount(), 1u);
    outputs->setAllDisplays(true);
    ASSERT_EQ(outputs->outputCount(), 2u);
    EXPECT_NE(made[&fake(0)], made[&fake(1)]) << "each monitor starts on its own camera path";
    EXPECT_EQ(fake(0).callsStartingWith("setClockEnabled").last(), "setClockEnabled(true)");
    EXPECT_EQ(fake(1).callsStartingWith("setClockEnabled").last(), "setClockEnabled(false)");

    // Unplugged, its output goes and its frames still count; plugged again, a new output is
    // brought to what the others were told.
    fake(1).frames = 9;
    settle({kLeft});
    ASSERT_EQ(outputs->outputCount(), 1u);
    EXPECT_EQ(outputs->frameCount(), 9u);
    settle({kLeft, kRight});
    ASSERT_EQ(outputs->outputCount(), 2u);
    for (const char* call : {"setTargetDisplay(22222222-0000-0000-0000-000000000002)", "createWindow",
                             "showWindow", "setFps(60)", "setPaused(false)"}) {
        EXPECT_TRUE(fake(1).calls.contains(QString::fromLatin1(call))) << call;
    }

    // Back to one monitor: the primary's output stays, and a cover of its monitor pauses it.
    FakeOutput* first = &fake(0);
    outputs->setAllDisplays(false);
    ASSERT_EQ(outputs->outputCount(), 1u);
    EXPECT_EQ(&fake(0), first);
    covers->set({kLeft});
    EXPECT_EQ(lastPause(0), "setPaused(true)");
}

TEST_F(MonitorOutputsTest, ACoveredMonitorPausesAloneAndResumesWhenUncovered) {
    outputs->setAllDisplays(true);
    fake(0).frames = 5;
    fake(1).frames = 7;
    struct Case {
        const char* what;
        bool paused;
        bool pauseWhenCovered;
        QSet<QUuid> covered;
        const char* left;
        const char* right;
        QStringList report;
    };
    const QString l = kLeft.toString(QUuid::WithoutBraces).toUpper();
    const QString r = kRight.toString(QUuid::WithoutBraces).toUpper();
    const std::vector<Case> cases = {
        {"nothing covered", false, true, {}, "false", "false", {l + " drawing 5", r + " drawing 7"}},
        {"left covered", false, true, {kLeft}, "true", "false", {l + " covered 5", r + " drawing 7"}},
        {"covered but pausing off", false, false, {kLeft}, "false", "false", {l + " drawing 5", r + " drawing 7"}},
        {"locked", true, true, {kRight}, "true", "true", {l + " paused 5", r + " covered 7"}},
        {"uncovered", false, true, {}, "false", "false", {l + " drawing 5", r + " drawing 7"}},
    };
    for (const Case& c : cases) {
        outputs->setPaused(c.paused);
        outputs->setPauseWhenCovered(c.pauseWhenCovered);
        covers->set(c.covered);
        EXPECT_EQ(lastPause(0), QStringLiteral("setPaused(%1)").arg(c.left)) << c.what;
        EXPECT_EQ(lastPause(1), QStringLiteral("setPaused(%1)").arg(c.right)) << c.what;
        EXPECT_EQ(outputs->monitorReport(), c.report) << c.what;
    }
    EXPECT_EQ(outputs->frameCount(), 12u);
}

} // namespace
} // namespace host::app
