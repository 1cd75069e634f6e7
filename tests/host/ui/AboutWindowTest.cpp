#include "host/ui/AboutWindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>

#include <gtest/gtest.h>

namespace host::ui {
namespace {

TEST(AboutWindowTest, VersionLineNamesUnknownParts) {
    EXPECT_EQ(AboutWindow::versionLine("0.1.0", "42"), "Version 0.1.0 (42)");
    EXPECT_EQ(AboutWindow::versionLine("", "42"), "Version Unknown (42)");
    EXPECT_EQ(AboutWindow::versionLine("0.1.0", ""), "Version 0.1.0 (Unknown)");
}

TEST(AboutWindowTest, ShowsIconNameVersionAndCredits) {
    QCoreApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    AboutWindow window;
    EXPECT_EQ(window.windowTitle(), "About");
    EXPECT_EQ(window.width(), 340);
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("aboutIcon"))->size(), QSize(90, 90));
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("aboutVersion"))->text(), "Version 0.1.0 (0.1.0)");
    QString credits;
    for (QLabel* label : window.findChildren<QLabel*>()) {
        credits += label->text();
    }
    // The fonts that stand in for the named faces are credited, with a link to their licences.
    EXPECT_TRUE(credits.contains("Comfortaa"));
    EXPECT_TRUE(credits.contains("Their authors and licences"));

    const QString keep = qEnvironmentVariable("NIVALIS_SCREENSHOT_DIR");
    if (!keep.isEmpty()) {
        window.show();
        EXPECT_EQ(window.width(), 340);
        QDir().mkpath(keep);
        window.grab().save(QDir(keep).filePath(QStringLiteral("about.png")));
        window.hide();
    }
}

} // namespace
} // namespace host::ui
