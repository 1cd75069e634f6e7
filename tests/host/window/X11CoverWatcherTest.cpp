#include "host/window/X11CoverWatcher.h"

#include <gtest/gtest.h>

namespace host::window {
namespace {

using Client = X11CoverWatcher::Client;

TEST(X11CoverWatcherRuleTest, FullscreenOrFullyMaximizedWindowsOnTheCurrentWorkspaceCoverTheirMonitor) {
    const QUuid left = QUuid::createUuid();
    const QUuid right = QUuid::createUuid();
    const std::vector<X11CoverWatcher::Monitor> monitors = {{left, QRect(0, 0, 1920, 1080)},
                                                            {right, QRect(1920, 0, 1920, 1080)}};
    const auto window = [](QRect area, std::uint32_t workspace) {
        Client c;
        c.area = area;
        c.workspace = workspace;
        c.mapped = true;
        return c;
    };
    const QRect onLeft(0, 30, 1920, 1050);
    const QRect onRight(1920, 0, 1920, 1080);
    Client maximized = window(onLeft, 0);
    maximized.maximizedVertically = maximized.maximizedHorizontally = true;
    Client halfMaximized = maximized;
    halfMaximized.maximizedHorizontally = false;
    Client fullscreenRight = window(onRight, 0);
    fullscreenRight.fullscreen = true;
    Client otherWorkspace = fullscreenRight;
    otherWorkspace.workspace = 1;
    Client sticky = fullscreenRight;
    sticky.workspace = 0xFFFFFFFFu;
    Client minimized = maximized;
    minimized.hidden = true;
    Client unmapped = maximized;
    unmapped.mapped = false;
    // A window straddling both monitors counts for the one its centre is on.
    Client straddling = window(QRect(1000, 0, 1920, 1080), 0);
    straddling.fullscreen = true;

    struct Case {
        const char* what;
        std::vector<Client> clients;
        QSet<QUuid> covered;
    };
    const std::vector<Case> cases = {
        {"plain window", {window(onLeft, 0)}, {}},
        {"maximized", {maximized}, {left}},
        {"maximized one way only", {halfMaximized}, {}},
        {"fullscreen on the right", {fullscreenRight}, {right}},
        {"another workspace", {otherWorkspace}, {}},
        {"on all workspaces", {sticky}, {right}},
        {"minimized", {minimized}, {}},
        {"unmapped", {unmapped}, {}},
        {"straddling", {straddling}, {right}},
        {"both", {maximized, fullscreenRight}, {left, right}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(X11CoverWatcher::coveredMonitors(c.clients, 0, monitors), c.covered) << c.what;
    }
}

} // namespace
} // namespace host::window
