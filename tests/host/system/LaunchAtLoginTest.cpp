#include "host/system/LaunchAtLogin.h"

#include "tests/host/app/TestApplication.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>

namespace host::system {
namespace {

class LaunchAtLoginTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        entry = dir.filePath(QStringLiteral("autostart/nivalis.desktop"));
    }

    QString entryText() const {
        QFile file(entry);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir dir;
    QString entry;
};

TEST_F(LaunchAtLoginTest, SwitchingOnWritesAnAutostartEntryAndOffRemovesIt) {
    LaunchAtLogin launch(entry, QStringLiteral("/usr/bin/nivalis"));
    QSignalSpy spy(&launch, &LaunchAtLogin::enabledChanged);
    EXPECT_FALSE(launch.isEnabled());

    launch.setEnabled(true);
    EXPECT_TRUE(launch.isEnabled());
    ASSERT_EQ(spy.count(), 1);
    EXPECT_TRUE(spy.at(0).at(0).toBool());
    const QString text = entryText();
    EXPECT_TRUE(text.startsWith(QStringLiteral("[Desktop Entry]\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("\nType=Application\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("\nExec=/usr/bin/nivalis\n")));

    launch.setEnabled(true);
    EXPECT_EQ(spy.count(), 1) << "no change, no signal";

    launch.setEnabled(false);
    EXPECT_FALSE(launch.isEnabled());
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(LaunchAtLoginTest, ExecutablePathsWithSpacesAreQuoted) {
    LaunchAtLogin launch(entry, QStringLiteral("/opt/My Apps/nivalis"));
    launch.setEnabled(true);
    EXPECT_TRUE(entryText().contains(QStringLiteral("\nExec=\"/opt/My Apps/nivalis\"\n")));
}

TEST_F(LaunchAtLoginTest, AnEntrySwitchedOffByTheDesktopCountsAsOff) {
    QDir().mkpath(dir.filePath(QStringLiteral("autostart")));
    QFile file(entry);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nExec=nivalis\nHidden=true\n");
    file.close();
    LaunchAtLogin launch(entry, QStringLiteral("/usr/bin/nivalis"));
    EXPECT_FALSE(launch.isEnabled());
    launch.setEnabled(true);
    EXPECT_TRUE(launch.isEnabled());
    EXPECT_FALSE(entryText().contains(QStringLiteral("Hidden=true")));
}

TEST_F(LaunchAtLoginTest, AFailedWriteLeavesTheSwitchOff) {
    // A file where the folder should be: the entry cannot be written.
    QFile blocker(dir.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    LaunchAtLogin launch(entry, QStringLiteral("/usr/bin/nivalis"));
    QSignalSpy spy(&launch, &LaunchAtLogin::enabledChanged);
    ::testing::internal::CaptureStderr();
    launch.setEnabled(true);
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(err.rfind("Failed to enable start at login: ", 0), 0u) << err;
    EXPECT_FALSE(launch.isEnabled());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(LaunchAtLoginTest, DefaultEntryFollowsXdgConfigHome) {
    const QByteArray saved = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    EXPECT_EQ(LaunchAtLogin::defaultEntryPath(), dir.filePath(QStringLiteral("autostart/nivalis.desktop")));
    if (saved.isEmpty()) {
        qunsetenv("XDG_CONFIG_HOME");
    } else {
        qputenv("XDG_CONFIG_HOME", saved);
    }
}

} // namespace
} // namespace host::system
