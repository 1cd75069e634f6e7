#include "host/settings/Settings.h"

#include "tests/host/app/TestApplication.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace host::settings {
namespace {

class SettingsTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath(QStringLiteral("config/nivalis/nivalis.conf"));
        settings = std::make_unique<Settings>(path);
    }

    /// The file's text, or empty when it does not exist.
    QString fileText() const {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    /// Writes `text` as the whole file, the way an editor saving by rename does.
    void writeFile(const QString& text) const {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QSaveFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        ASSERT_TRUE(file.commit());
    }

    QTemporaryDir dir;
    QString path;
    std::unique_ptr<Settings> settings;
};

TEST_F(SettingsTest, FreshUserReadsEveryDefaultAndNothingIsWritten) {
    EXPECT_FALSE(settings->hideMenuBarIcon.read());
    EXPECT_EQ(settings->display.read(), std::nullopt);
    EXPECT_FALSE(settings->deactivateOnBattery.read());
    EXPECT_TRUE(settings->showOnAllSpaces.read());
    EXPECT_FALSE(settings->bringBrowsingModeToFront.read());
    EXPECT_TRUE(settings->muteAudio.read());
    EXPECT_FALSE(settings->extendVeilBelowMenuBar.read());
    EXPECT_EQ(settings->fps.read(), 30);
    EXPECT_TRUE(settings->lowPowerMode.read());
    EXPECT_TRUE(settings->batteryMode.read());
    EXPECT_TRUE(settings->sceneVignette.read());
    EXPECT_EQ(settings->sceneSpeed.read(), 1.5f);
    EXPECT_EQ(settings->sceneTime.read(), QStringLiteral("auto"));
    EXPECT_EQ(settings->clockFont.read(), QStringLiteral("Baloo"));
    EXPECT_EQ(settings->clockFormat.read(), QStringLiteral("h:mm"));
    EXPECT_FALSE(settings->clockEnabled.read());
    EXPECT_EQ(settings->clockOpacity.read(), 0.7);
    EXPECT_EQ(settings->clockSize.read(), 220.0f);

    auto subscription = settings->fps.subscribe(ObservationOption::Initial, [](const auto&) {});
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(path).absolutePath())) << "not even the folder";
}

TEST_F(SettingsTest, ValuesAreStoredAsReadableText) {
    settings->hideMenuBarIcon.write(true);
    settings->fps.write(60);
    settings->sceneSpeed.write(2.25f);
    settings->clockOpacity.write(0.7);
    settings->clockSize.write(333.3f);
    settings->clockFormat.write(QStringLiteral("HH:mm"));
    settings->clockFont.write(QStringLiteral("Virgo 01"));
    const QString text = fileText();
    EXPECT_TRUE(text.contains(QStringLiteral("hideMenuBarIcon=true"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("fps=60")));
    EXPECT_TRUE(text.contains(QStringLiteral("sceneSpeed=2.25")));
    EXPECT_TRUE(text.contains(QStringLiteral("clockOpacity=0.7\n")));
    // The shortest text that reads back to the same single-precision value.
    EXPECT_TRUE(text.contains(QStringLiteral("clockSize=333.3\n")));

    Settings other(path);
    EXPECT_TRUE(other.hideMenuBarIcon.read());
    EXPECT_EQ(other.fps.read(), 60);
    EXPECT_EQ(other.sceneSpeed.read(), 2.25f);
    EXPECT_EQ(other.clockOpacity.read(), 0.7);
    EXPECT_EQ(other.clockSize.read(), 333.3f);
    EXPECT_EQ(other.clockFormat.read(), QStringLiteral("HH:mm"));
    EXPECT_EQ(other.clockFont.read(), QStringLiteral("Virgo 01"));
}

TEST_F(SettingsTest, DisplayIsStoredAsUpperCaseUuidAndGarbageReadsAbsent) {
    const QUuid id = QUuid::fromString(QStringLiteral("{6ba7b810-9dad-11d1-80b4-00c04fd430c8}"));
    settings->display.write(id);
    EXPECT_TRUE(fileText().contains(QStringLiteral("display=6BA7B810-9DAD-11D1-80B4-00C04FD430C8")));
    EXPECT_EQ(settings->display.read(), id);
    EXPECT_EQ(settings->display.valueText(), QStringLiteral("6BA7B810-9DAD-11D1-80B4-00C04FD430C8"));

    settings->display.write(std::nullopt);
    EXPECT_FALSE(settings->display.hasEntry()) << "absent means no entry";

    writeFile(QStringLiteral("[General]\ndisplay=not a display\n"));
    settings->store().reload();
    EXPECT_TRUE(settings->display.hasEntry());
    EXPECT_EQ(settings->display.read(), std::nullopt);
    writeFile(QStringLiteral("[General]\ndisplay=6ba7b810-9dad-11d1-80b4-00c04fd430c8\n"));
    settings->store().reload();
    EXPECT_EQ(settings->display.read(), id) << "letter case does not matter when reading";
}

TEST_F(SettingsTest, UndecodableEntriesReadAsTheDefault) {
    writeFile(QStringLiteral("[General]\n"
                             "fps=sixty\n"
                             "batteryMode=maybe\n"
                             "sceneSpeed=nan\n"
                             "clockOpacity=0.5x\n"
                             "clockSize=1e999\n"
                             "clockFont=Abril, Baloo\n"
                             "clockEnabled=TRUE\n"
                             "hideMenuBarIcon=1\n"
                             "sceneVignette=0\n"
                             "extendVeilBelowMenuBar=\n"));
    settings->store().reload();
    EXPECT_EQ(settings->fps.read(), 30);
    EXPECT_TRUE(settings->batteryMode.read());
    EXPECT_EQ(settings->sceneSpeed.read(), 1.5f);
    EXPECT_EQ(settings->clockOpacity.read(), 0.7);
    EXPECT_EQ(settings->clockSize.read(), 220.0f) << "out of range for a float";
    EXPECT_EQ(settings->store().entry(QStringLiteral("clockFont")).toString(), QStringLiteral("Abril, Baloo"))
        << "a comma is part of the text";
    EXPECT_EQ(settings->clockFont.read(), QStringLiteral("Baloo")) << "no such font: the default";
    EXPECT_TRUE(settings->clockEnabled.read());
    EXPECT_TRUE(settings->hideMenuBarIcon.read());
    EXPECT_FALSE(settings->sceneVignette.read());
    EXPECT_FALSE(settings->extendVeilBelowMenuBar.read());

    writeFile(QStringLiteral("[General]\nfps=30.5\n"));
    settings->store().reload();
    EXPECT_EQ(settings->fps.read(), 30) << "not an integer";
    writeFile(QStringLiteral("[General]\nfps=  60  \n")); // differs in size from the last write
    settings->store().reload();
    EXPECT_EQ(settings->fps.read(), 60);
}

// Values the settings window could not produce (an older version, a hand edit) read as the
// nearest valid number of a range or as the default of a list, and the file stays as it is.
TEST_F(SettingsTest, OutOfRangeEntriesReadAsTheNearestValidOrTheDefaultAndTheFileIsUntouched) {
    const struct {
        const char* entry;
        QString read;
    } cases[] = {
        {"fps=0", "30"},          {"fps=-5", "30"},          {"fps=1000", "30"},         {"fps=45", "30"},
        {"sceneSpeed=99", "3"},   {"sceneSpeed=-1", "0.5"},  {"sceneSpeed=1.3", "1.25"}, {"sceneSpeed=1.4", "1.5"},
        {"clockSize=99999", "350"}, {"clockSize=-3", "150"}, {"clockSize=287.3", "287.3"},
        {"clockOpacity=5", "1"},  {"clockOpacity=0", "0.1"}, {"clockFormat=yyyy", "h:mm"},
        {"clockFont=Comic", "Baloo"}, {"sceneTime=noon", "auto"}, {"scene=desert", "nivalis"},
        {"quality=ultra", "auto"},
    };
    for (const auto& c : cases) {
        const QString entry = QString::fromLatin1(c.entry);
        SCOPED_TRACE(c.entry);
        const QString text = QStringLiteral("# kept as it is\n[General]\n") + entry + QLatin1Char('\n');
        writeFile(text);
        Settings reader(path);
        const SettingsKeyBase* key = reader.find(entry.section(QLatin1Char('='), 0, 0));
        ASSERT_NE(key, nullptr);
        EXPECT_EQ(key->valueText(), c.read);
        EXPECT_EQ(fileText(), text);
    }
}

TEST_F(SettingsTest, InitialRunsOnceAtOnceAndChangesCarryOldAndNewValues) {
    settings->fps.write(20);
    std::vector<KeyChange<int>> seen;
    auto subscription = settings->fps.subscribe(ObservationOption::Initial, [&](const auto& c) { seen.push_back(c); });
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].newValue, 20);
    EXPECT_EQ(seen[0].oldValue, std::nullopt);

    settings->fps.write(60);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[1].newValue, 60);
    EXPECT_EQ(seen[1].oldValue, 20);

    settings->fps.remove();
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[2].newValue, 30) << "removing the entry brings the default";
    EXPECT_EQ(seen[2].oldValue, 60);

    // Another key's change is not this key's.
    settings->clockSize.write(200.0f);
    EXPECT_EQ(seen.size(), 3u);
}

TEST_F(SettingsTest, WithoutInitialOnlyChangesArriveAndTwoSubscribersFollowEachOther) {
    int first = 0;
    int second = 0;
    bool lastValue = false;
    auto a = settings->lowPowerMode.subscribe(ObservationOption::None, [&](const auto&) { ++first; });
    auto b = settings->lowPowerMode.subscribe(ObservationOption::None, [&](const auto& c) {
        ++second;
        lastValue = c.newValue;
    });
    EXPECT_EQ(first, 0);
    settings->lowPowerMode.write(false);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
    EXPECT_FALSE(lastValue);
}

TEST_F(SettingsTest, DroppingTheHandleEndsTheSubscription) {
    int calls = 0;
    {
        auto subscription = settings->sceneTime.subscribe(ObservationOption::None, [&](const auto&) { ++calls; });
        settings->sceneTime.write(QStringLiteral("day"));
        Subscription moved = std::move(subscription);
        EXPECT_FALSE(subscription.isActive());
        EXPECT_TRUE(moved.isActive());
        settings->sceneTime.write(QStringLiteral("dusk"));
    }
    settings->sceneTime.write(QStringLiteral("dawn"));
    EXPECT_EQ(calls, 2);
}

TEST_F(SettingsTest, WritingTheSameValueAgainAnnouncesNothing) {
    settings->clockEnabled.write(true);
    int calls = 0;
    auto subscription = settings->clockEnabled.subscribe(ObservationOption::None, [&](const auto&) { ++calls; });
    settings->clockEnabled.write(true);
    EXPECT_EQ(calls, 0);
}

TEST_F(SettingsTest, ChangesByAnotherProcessAreAnnounced) {
    std::vector<KeyChange<int>> seen;
    auto subscription = settings->fps.subscribe(ObservationOption::None, [&](const auto& c) { seen.push_back(c); });

    // The file and its folder do not exist yet: the first outside write creates both.
    Settings outside(path);
    outside.fps.write(60);
    QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 1u, 3000);
    EXPECT_EQ(seen[0].newValue, 60);
    EXPECT_EQ(seen[0].oldValue, 30);

    // An editor replacing the file.
    writeFile(QStringLiteral("[General]\nfps=20\n"));
    QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 2u, 3000);
    EXPECT_EQ(seen[1].newValue, 20);

    // Removal of the whole file brings the default back.
    QFile::remove(path);
    QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 3u, 3000);
    EXPECT_EQ(seen[2].newValue, 30);

    // And the watcher still works after that.
    outside.fps.write(60);
    QTRY_COMPARE_WITH_TIMEOUT(seen.size(), 4u, 3000);
    EXPECT_EQ(seen[3].newValue, 60);
}

TEST_F(SettingsTest, OwnWritesAreAnnouncedOnceNotAgainByTheWatcher) {
    QSignalSpy spy(&settings->store(), &SettingsStore::entryChanged);
    settings->sceneVignette.write(false);
    EXPECT_EQ(spy.count(), 1);
    QTest::qWait(300);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(SettingsTest, DefaultFileFollowsXdgConfigHome) {
    const QByteArray saved = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    EXPECT_EQ(SettingsStore::defaultFilePath(), dir.filePath(QStringLiteral("nivalis/nivalis.conf")));
    if (saved.isEmpty()) {
        qunsetenv("XDG_CONFIG_HOME");
    } else {
        qputenv("XDG_CONFIG_HOME", saved);
    }
}

} // namespace
} // namespace host::settings
