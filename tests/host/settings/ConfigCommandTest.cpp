#include "host/settings/ConfigCommand.h"

#include "host/settings/Settings.h"
#include "tests/host/app/TestApplication.h"

#include <QFile>
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

    EXPECT_EQ(run(QStringLiteral("set display garbage")), 1);
    run(QStringLiteral("get display"));
    EXPECT_EQ(out, QStringLiteral("6BA7B810-9DAD-11D1-80B4-00C04FD430C8\n")) << "a refused value writes nothing";
}

// Every value the settings window could not produce is refused, naming the key and what it
// accepts, and nothing is written.
TEST_F(ConfigCommandTest, ValuesTheSettingsWindowCannotProduceAreRefused) {
    const QString fonts = QStringLiteral("Abril Fatface, Baloo, Black Ops One, CarbonType, Limelight, Major Snafu, "
                                         "Nyamomobile, Oswald, Virgo 01 or Yukarimobile");
    const struct {
        const char* key;
        QStringList bad;
        QString accepts;
    } cases[] = {
        {"fps", {"0", "-5", "1000", "25", "fast", "30.5"}, QStringLiteral("20, 30 or 60")},
        {"sceneSpeed", {"99", "-1", "0.25", "3.25", "1.3", "nan", "slow"},
         QStringLiteral("a number from 0.5 to 3 in steps of 0.25")},
        {"clockSize", {"99999", "-3", "149.9", "inf"}, QStringLiteral("a number from 150 to 350")},
        {"clockOpacity", {"5", "0", "0.05", "-0.5", "1.01"}, QStringLiteral("a number from 0.1 to 1")},
        {"clockFormat", {"yyyy", "hh:mm:ss", "HH:MM", ""}, QStringLiteral("h:mm, hh:mm, H:mm or HH:mm")},
        {"clockFont", {"Comic", "baloo", "Carbon", "Virgo"}, fonts},
        {"sceneTime", {"noon", "Day", "sunrise", ""}, QStringLiteral("auto, day, night, dusk or dawn")},
        {"scene", {"Nivalis", "desert", ""}, QStringLiteral("nivalis, spirelight, betonia or example")},
        {"quality", {"Low", "medium", ""}, QStringLiteral("auto, high or low")},
        {"display", {"garbage", "1234", ""}, QStringLiteral("a monitor's UUID, as the Settings window stores it")},
        {"clockEnabled", {"yes", "2", ""}, QStringLiteral("true or false")},
    };
    for (const auto& c : cases) {
        const QString key = QString::fromLatin1(c.key);
        for (const QString& value : c.bad) {
            SCOPED_TRACE((key + QLatin1Char(' ') + value).toStdString());
            Settings settings(path);
            QTextStream outStream(&out), errStream(&err);
            out.clear();
            err.clear();
            EXPECT_EQ(ConfigCommand::run({QStringLiteral("set"), key, value}, settings, outStream, errStream), 1);
            errStream.flush();
            EXPECT_EQ(err, QStringLiteral("Invalid value for %1: '%2'; %1 accepts %3\n").arg(key, value, c.accepts));
            EXPECT_FALSE(settings.find(key)->hasEntry());
        }
    }
    EXPECT_FALSE(QFile::exists(path)) << "no refusal writes the file";
    for (const char* good : {"set fps 20", "set sceneSpeed 0.5", "set sceneSpeed 3", "set sceneSpeed 2.75",
                             "set clockSize 150", "set clockSize 287.3", "set clockOpacity 0.1", "set clockFont Virgo 01",
                             "set clockFormat HH:mm", "set scene spirelight", "set sceneTime dawn",
                             "set quality low"}) {
        const QStringList words = QString::fromLatin1(good).split(QLatin1Char(' '));
        Settings settings(path);
        QTextStream outStream(&out), errStream(&err);
        EXPECT_EQ(ConfigCommand::run(words.mid(0, 2) << words.mid(2).join(QLatin1Char(' ')), settings, outStream,
                                     errStream),
                  0)
            << good;
    }
}

TEST_F(ConfigCommandTest, HelpNamesEveryKeyWithWhatItAccepts) {
    ASSERT_EQ(run(QStringLiteral("--help")), 0);
    EXPECT_TRUE(out.startsWith(ConfigCommand::usage()));
    EXPECT_TRUE(out.contains(QStringLiteral("\n  fps                         20, 30 or 60\n"))) << out.toStdString();
    Settings settings(path);
    for (const SettingsKeyBase* key : settings.keys()) {
        EXPECT_TRUE(out.contains(QStringLiteral("  ") + key->name() + QLatin1Char(' '))) << key->name().toStdString();
    }
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
