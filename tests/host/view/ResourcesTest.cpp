#include "host/view/Resources.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace host::view {
namespace {

TEST(ResourcesTest, InstalledProgramReadsShareNivalisBesideItsBinFolder) {
    QTemporaryDir prefix;
    ASSERT_TRUE(QDir(prefix.path()).mkpath(QStringLiteral("bin")));
    ASSERT_TRUE(QDir(prefix.path()).mkpath(QStringLiteral("share/nivalis")));
    EXPECT_EQ(Resources::directoryFor(prefix.filePath(QStringLiteral("bin"))),
              QDir::cleanPath(prefix.filePath(QStringLiteral("share/nivalis"))));
}

TEST(ResourcesTest, ProgramInTheBuildTreeReadsTheTreesResources) {
    // build/host/nivalis reads build/resources.
    QTemporaryDir build;
    ASSERT_TRUE(QDir(build.path()).mkpath(QStringLiteral("host")));
    ASSERT_TRUE(QDir(build.path()).mkpath(QStringLiteral("resources")));
    EXPECT_EQ(Resources::directoryFor(build.filePath(QStringLiteral("host"))),
              QDir::cleanPath(build.filePath(QStringLiteral("resources"))));
    // A program at the top of the tree reads the folder beside it.
    EXPECT_EQ(Resources::directoryFor(build.path()), QDir::cleanPath(build.filePath(QStringLiteral("resources"))));
}

TEST(ResourcesTest, WithoutAnyResourcesTheInstalledPlaceIsNamed) {
    QTemporaryDir empty;
    EXPECT_EQ(Resources::directoryFor(empty.filePath(QStringLiteral("bin"))),
              QDir::cleanPath(empty.filePath(QStringLiteral("share/nivalis"))));
}

} // namespace
} // namespace host::view
