#pragma once

#include "host/app/CoverWatcher.h"

#include <QAbstractNativeEventFilter>
#include <QRect>
#include <QSet>
#include <QUuid>

#include <cstdint>
#include <memory>
#include <vector>

namespace host::window {

/// Which monitors a window hides on X11, from what the window manager publishes (EWMH): the
/// stacking list of clients on the root window, each client's state (fullscreen, maximized
/// both ways, hidden) and workspace against the current one, and each client's place on the
/// screen. It follows the property and configure events of the root and of every client; a
/// burst of events is judged once, on the next turn of the event loop. Nothing is polled.
class X11CoverWatcher : public app::CoverWatcher, private QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// What the rule needs to know of one client window.
    struct Client {
        /// Its area in root coordinates.
        QRect area;
        /// Its workspace (0xFFFFFFFF: all of them).
        std::uint32_t workspace = 0;
        bool mapped = false;
        bool fullscreen = false;
        bool maximizedVertically = false;
        bool maximizedHorizontally = false;
        bool hidden = false;
    };
    /// One monitor: its Display UUID and its area in root coordinates.
    struct Monitor {
        QUuid display;
        QRect area;
    };

    /// Starts watching when the application runs on X11; elsewhere nothing is ever covered.
    explicit X11CoverWatcher(QObject* parent = nullptr);
    ~X11CoverWatcher() override;

    bool isCovered(const QUuid& display) const override;

    /// The rule: a monitor is covered when a mapped, not hidden client on the current workspace
    /// (or on all of them) is fullscreen or maximized both ways and has its centre on it. A
    /// maximized window leaves only the panels of its monitor visible, which draw over the
    /// wallpaper anyway.
    static QSet<QUuid> coveredMonitors(const std::vector<Client>& clients, std::uint32_t currentWorkspace,
                                       const std::vector<Monitor>& monitors);

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void scheduleUpdate();
    void update();

    struct Atoms;
    std::unique_ptr<Atoms> atoms_;
    QSet<std::uint32_t> watched_;
    QSet<QUuid> covered_;
    bool updateQueued_ = false;
};

} // namespace host::window
