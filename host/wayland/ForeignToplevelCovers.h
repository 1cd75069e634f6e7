#pragma once

#include "host/app/CoverWatcher.h"

#include <QSet>
#include <QUuid>

#include <cstdint>
#include <memory>
#include <vector>

struct wl_array;
struct wl_output;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace host::wayland {

class WaylandConnection;

/// Which monitors a window hides on a Wayland compositor that lists every client's windows
/// (the foreign-toplevel protocol, offered by sway and other wlroots compositors): a window
/// that is fullscreen or maximized, and not minimized, covers each monitor it has entered. It
/// follows the compositor's events on the program's own connection; nothing is polled.
class ForeignToplevelCovers : public app::CoverWatcher {
    Q_OBJECT
public:
    /// Starts listening on `connection`, which must offer the protocol and outlive this.
    explicit ForeignToplevelCovers(WaylandConnection& connection, QObject* parent = nullptr);
    ~ForeignToplevelCovers() override;

    bool isCovered(const QUuid& display) const override;

private:
    struct Toplevel;

    static void onToplevel(void* data, zwlr_foreign_toplevel_manager_v1*, zwlr_foreign_toplevel_handle_v1* handle);
    static void onFinished(void* data, zwlr_foreign_toplevel_manager_v1*);
    static void onTitle(void*, zwlr_foreign_toplevel_handle_v1*, const char*) {}
    static void onAppId(void*, zwlr_foreign_toplevel_handle_v1*, const char*) {}
    static void onOutputEnter(void* data, zwlr_foreign_toplevel_handle_v1*, wl_output* output);
    static void onOutputLeave(void* data, zwlr_foreign_toplevel_handle_v1*, wl_output* output);
    static void onState(void* data, zwlr_foreign_toplevel_handle_v1*, wl_array* state);
    static void onDone(void* data, zwlr_foreign_toplevel_handle_v1*);
    static void onClosed(void* data, zwlr_foreign_toplevel_handle_v1*);
    static void onParent(void*, zwlr_foreign_toplevel_handle_v1*, zwlr_foreign_toplevel_handle_v1*) {}

    void update();

    WaylandConnection& connection_;
    zwlr_foreign_toplevel_manager_v1* manager_ = nullptr;
    std::vector<std::unique_ptr<Toplevel>> toplevels_;
    QSet<QUuid> covered_;
};

} // namespace host::wayland
