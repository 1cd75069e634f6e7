#include "host/ui/WindowKeys.h"

#include "tests/host/app/TestApplication.h"

#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

namespace host::ui {
namespace {

QWidget* shownWindowWithKeys() {
    auto* window = new QWidget(nullptr, Qt::Window);
    window->setAttribute(Qt::WA_DeleteOnClose, false);
    WindowKeys::install(window);
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    return window;
}

TEST(WindowKeysTest, EscAndCtrlWCloseTheWindowAndCtrlCommaOpensSettings) {
    testing::testApplication();
    int opened = 0;
    WindowKeys::setOpenSettings([&] { ++opened; });
    const struct {
        QKeyCombination keys;
        bool closes;
        int opens;
    } cases[] = {
        {QKeyCombination(Qt::Key_Escape), true, 0},
        {QKeyCombination(Qt::CTRL, Qt::Key_W), true, 0},
        {QKeyCombination(Qt::CTRL, Qt::Key_Comma), false, 1},
        {QKeyCombination(Qt::Key_W), false, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(QKeySequence(c.keys).toString().toStdString());
        std::unique_ptr<QWidget> window(shownWindowWithKeys());
        opened = 0;
        QTest::keyClick(window.get(), c.keys.key(), c.keys.keyboardModifiers());
        EXPECT_EQ(window->isVisible(), !c.closes);
        EXPECT_EQ(opened, c.opens);
    }
    WindowKeys::setOpenSettings(nullptr);
}

TEST(WindowKeysTest, CtrlQQuitsTheApplication) {
    testing::testApplication();
    std::unique_ptr<QWidget> window(shownWindowWithKeys());
    QTimer::singleShot(0, window.get(), [&] { QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier); });
    // Should the key do nothing, the loop ends with another status after a while.
    QTimer::singleShot(5000, window.get(), [] { QCoreApplication::exit(3); });
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

} // namespace
} // namespace host::ui
