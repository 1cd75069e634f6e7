#include "host/settings/ConfigCommand.h"

#include "host/settings/Settings.h"
#include "tests/host/app/TestApplication.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace host::settings {
namespace {

class ConfigCommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath(QStringLiteral("nivalis/nivalis.conf"));
    }

    /// Runs `nivalis config <words>` as its own program would: on a Settings of its own.
    int run(const QString& words) {
        out.clear();
        err.clear();
        Settings settings(path);
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        const int status = ConfigCommand::run(words.split(QLatin1Char(' '), Qt::SkipEmptyParts), settings,
                                              outStream, errStream);
        outStream.flush();
        errStream.flush();
        return status;
    }

    QTemporaryDir dir;
    QString path;
    QString out;
    QString err;
};

TEST_F(ConfigCommandTest, ListShowsEveryKeyWithDefaultsMarked) {
    ASSERT_EQ(run(QStringLiteral("list")), 0);
    EXPECT_EQ(out, QStringLiteral("hideMenuBarIcon=false (default)\n"
                                  "display= (default)\n"
                                  "deactivateOnBattery=false (default)\n"
                                  "showOnAllSpaces=true (default)\n"
                                  "bringBrowsingModeToFront=false (default)\n"
                                  "muteAudio=true (default)\n"
                                  "extendVeilBelowMenuBar=false (default)\n"
                                  "fps=30 (default)\n"
                                  "lowPowerMode=true (default)\n"
                                  "batteryMode=true (default)\n"
                                  "sceneVignette=true (default)\n"
                                  "sceneSpeed=1.5 (default)\n"
                                  "sceneTime=auto (default)\n"
                                  "clockFont=Baloo (default)\n"
                                  "clockFormat=h:mm (default)\n"
                                  "clockEnabled=false (default)\n"
                                  "clockOpacity=0.7 (default)\n"
                                  "clockSize=220 (default)\n"
                                  "allDisplays=false (default)\n"
                                  "pauseWhenCovered=true (default)\n"));
    ASSERT_EQ(run(QStringLiteral("set fps 60")), 0);
    ASSERT_EQ(run(QStringLiteral("list")), 0);
    EXPECT_TRUE(out.contains(QStringLiteral("\nfps=60\n")));
}

TEST_F(ConfigCommandTest, SetGetUnsetRoundTrip) {
    EXPECT_EQ(run(QStringLiteral("get fps")), 0);
    EXPECT_EQ(out, QStringLiteral("30\n"));
    EXPECT_EQ(run(QStringLiteral("set fps 60")), 0);
    EXPECT_TRUE(out.isEmpty());
    EXPECT_EQ(run(QStringLiteral("get fps")), 0);
    EXPECT_EQ(out, QStringLiteral("60\n"));
    EXPECT_EQ(run(QStringLiteral("unset fps")), 0);
    EXPECT_EQ(run(QStringLiteral("get fps")), 0);
    EXPECT_EQ(out, QStringLiteral("30\n"));
}

TEST_F(ConfigCommandTest, ValuesAreCheckedAndWrittenInCanonicalForm) {
    EXPECT_EQ(run(QStringLiteral("set clockEnabled TRUE")), 0);
    run(QStringLiteral("get clockEnabled"));
    EXPECT_EQ(out, QStringLiteral("true\n"));
    EXPECT_EQ(run(QStringLiteral("set display 6ba7b810-9dad-11d1-80b4-00c04fd430c8")), 0);
    run(QStringLiteral("get display"));
    EXPECT_EQ(out, QStringLiteral("6BA7B810-9DAD-11D1-80B4-00C04FD430C8\n"));
    EXPECT_EQ(run(QStringLiteral("set sceneSpeed 2.50")), 0);
    run(QStringLiteral("get sceneSpeed"));
    EXPECT_EQ(out, QStringLiteral("2.5\n"));

    EXPECT_EQ(run(QStringLiteral("set fps fast")), 1);
    EXPECT_EQ(err, QStringLiteral("Invalid value for fps (integer): fast\n"));
    EXPECT_EQ(run(QStringLiteral("set display garbage")), 1);
    EXPECT_EQ(run(QStringLiteral("set clockOpacity inf")), 1);
    run(QStringLiteral("get display"));
    EXPECT_EQ(out, QStringLiteral("6BA7B810-9DAD-11D1-80B4-00C04FD430C8\n")) << "a refused value writes nothing";
}

TEST_F(ConfigCommandTest, UnknownKeysAndBadUsage) {
    EXPECT_EQ(run(QStringLiteral("get colour")), 1);
    EXPECT_EQ(err, QStringLiteral("Unknown setting: colour\n"));
    EXPECT_EQ(run(QStringLiteral("")), 2);
    EXPECT_EQ(err, ConfigCommand::usage());
    EXPECT_EQ(run(QStringLiteral("set fps")), 2);
    EXPECT_EQ(run(QStringLiteral("get")), 2);
    EXPECT_EQ(run(QStringLiteral("list extra")), 2);
    EXPECT_EQ(run(QStringLiteral("remove fps")), 2);
}

TEST_F(ConfigCommandTest, ARunningProgramSeesTheCommandsWrites) {
    Settings running(path);
    QString font;
    auto subscription = running.clockFont.subscribe(ObservationOption::None, [&](const auto& c) { font = c.newValue; });
    ASSERT_EQ(run(QStringLiteral("set clockFont Oswald")), 0);
    QTRY_COMPARE_WITH_TIMEOUT(font, QStringLiteral("Oswald"), 3000);
}

} // namespace
} // namespace host::settings
