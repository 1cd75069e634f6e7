#include "host/menu/AppMenu.h"

#include "host/menu/StatusItem.h"
#include "tests/host/app/TestApplication.h"

#include <QAction>
#include <QTest>

#include <gtest/gtest.h>

namespace host::menu {
namespace {

TEST(AppMenuTest, RebuildsBeforeEveryOpeningAndTracksWhetherItIsOpen) {
    testing::testApplication();
    AppMenu menu;
    int builds = 0;
    bool openDuringBuild = false;
    menu.onUpdate = [&] {
        ++builds;
        openDuringBuild = menu.isOpen();
        menu.clear();
        menu.addCallbackItem(QStringLiteral("Item %1").arg(builds), QString(), [] {});
    };
    EXPECT_FALSE(menu.isOpen());
    for (int opening = 1; opening <= 2; ++opening) {
        menu.popup(QPoint(10, 10));
        QTRY_VERIFY(menu.isVisible());
        EXPECT_TRUE(menu.isOpen());
        EXPECT_EQ(builds, opening);
        ASSERT_EQ(menu.actions().size(), 1);
        EXPECT_EQ(menu.actions().first()->text(), QStringLiteral("Item %1").arg(opening));
        menu.hide();
        QTRY_VERIFY(!menu.isOpen());
    }
    EXPECT_TRUE(openDuringBuild);
}

TEST(AppMenuTest, CallbackItemsRunTheirCallbackAndShowTheirShortcut) {
    testing::testApplication();
    AppMenu menu;
    int runs = 0;
    QAction* quit = menu.addCallbackItem(QStringLiteral("Quit"), QStringLiteral("Ctrl+Q"), [&] { ++runs; });
    QAction* about = menu.addCallbackItem(QStringLiteral("About"), QString(), [] {});
    EXPECT_EQ(quit->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    EXPECT_TRUE(about->shortcut().isEmpty());
    EXPECT_TRUE(quit->isEnabled());
    EXPECT_FALSE(quit->isCheckable());
    quit->trigger();
    quit->trigger();
    EXPECT_EQ(runs, 2);
}

TEST(StatusItemTest, VisibilityAndDisabledLook) {
    testing::testApplication();
    AppMenu menu;
    StatusItem item(menu, QStringLiteral("Nivalis"));
    EXPECT_TRUE(item.isVisible());
    EXPECT_FALSE(item.appearsDisabled());
    item.setVisible(false);
    EXPECT_FALSE(item.isVisible());
    item.setAppearsDisabled(true);
    EXPECT_TRUE(item.appearsDisabled());

    // The drawn icon has content, and its disabled look differs from the normal one.
    const QIcon icon = StatusItem::menuBarIcon();
    ASSERT_FALSE(icon.isNull());
    const QImage normal = icon.pixmap(QSize(32, 32)).toImage();
    const QImage disabled = icon.pixmap(QSize(32, 32), QIcon::Disabled).toImage();
    EXPECT_NE(normal, disabled);
}

} // namespace
} // namespace host::menu
