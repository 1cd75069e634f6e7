#include "host/wayland/ForeignToplevelCovers.h"

#include "host/wayland/WaylandConnection.h"
#include "host/wayland/WaylandMonitor.h"

#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"

#include <wayland-client.h>

#include <algorithm>

namespace host::wayland {

struct ForeignToplevelCovers::Toplevel {
    ForeignToplevelCovers* owner = nullptr;
    zwlr_foreign_toplevel_handle_v1* handle = nullptr;
    std::vector<wl_output*> outputs;
    // The state sent last, and the one in force since the last `done`.
    std::vector<std::uint32_t> pendingState;
    bool covering = false;
};

ForeignToplevelCovers::ForeignToplevelCovers(WaylandConnection& connection, QObject* parent)
    : CoverWatcher(parent), connection_(connection) {
    static const zwlr_foreign_toplevel_manager_v1_listener listener = {
        .toplevel = &ForeignToplevelCovers::onToplevel,
        .finished = &ForeignToplevelCovers::onFinished,
    };
    manager_ = connection_.bindToplevelManager();
    if (manager_ != nullptr) {
        zwlr_foreign_toplevel_manager_v1_add_listener(manager_, &listener, this);
        setOffered(true);
    }
    connect(&connection_, &WaylandConnection::monitorsChanged, this, &ForeignToplevelCovers::update);
}

ForeignToplevelCovers::~ForeignToplevelCovers() {
    for (const auto& toplevel : toplevels_) {
        zwlr_foreign_toplevel_handle_v1_destroy(toplevel->handle);
    }
    if (manager_ != nullptr) {
        zwlr_foreign_toplevel_manager_v1_stop(manager_);
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(manager_));
    }
}

bool ForeignToplevelCovers::isCovered(const QUuid& display) const {
    return covered_.contains(display);
}

void ForeignToplevelCovers::onToplevel(void* data, zwlr_foreign_toplevel_manager_v1*,
                                       zwlr_foreign_toplevel_handle_v1* handle) {
    static const zwlr_foreign_toplevel_handle_v1_listener listener = {
        .title = &ForeignToplevelCovers::onTitle,
        .app_id = &ForeignToplevelCovers::onAppId,
        .output_enter = &ForeignToplevelCovers::onOutputEnter,
        .output_leave = &ForeignToplevelCovers::onOutputLeave,
        .state = &ForeignToplevelCovers::onState,
        .done = &ForeignToplevelCovers::onDone,
        .closed = &ForeignToplevelCovers::onClosed,
        .parent = &ForeignToplevelCovers::onParent,
    };
    auto* self = static_cast<ForeignToplevelCovers*>(data);
    auto toplevel = std::make_unique<Toplevel>();
    toplevel->owner = self;
    toplevel->handle = handle;
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &listener, toplevel.get());
    self->toplevels_.push_back(std::move(toplevel));
}

void ForeignToplevelCovers::onFinished(void* data, zwlr_foreign_toplevel_manager_v1*) {
    auto* self = static_cast<ForeignToplevelCovers*>(data);
    wl_proxy_destroy(reinterpret_cast<wl_proxy*>(self->manager_));
    self->manager_ = nullptr;
}

void ForeignToplevelCovers::onOutputEnter(void* data, zwlr_foreign_toplevel_handle_v1*, wl_output* output) {
    static_cast<Toplevel*>(data)->outputs.push_back(output);
}

void ForeignToplevelCovers::onOutputLeave(void* data, zwlr_foreign_toplevel_handle_v1*, wl_output* output) {
    auto& outputs = static_cast<Toplevel*>(data)->outputs;
    outputs.erase(std::remove(outputs.begin(), outputs.end(), output), outputs.end());
}

void ForeignToplevelCovers::onState(void* data, zwlr_foreign_toplevel_handle_v1*, wl_array* state) {
    auto* toplevel = static_cast<Toplevel*>(data);
    const auto* words = static_cast<const std::uint32_t*>(state->data);
    toplevel->pendingState.assign(words, words + state->size / sizeof(std::uint32_t));
}

void ForeignToplevelCovers::onDone(void* data, zwlr_foreign_toplevel_handle_v1*) {
    auto* toplevel = static_cast<Toplevel*>(data);
    const auto holds = [toplevel](std::uint32_t value) {
        return std::find(toplevel->pendingState.begin(), toplevel->pendingState.end(), value) !=
               toplevel->pendingState.end();
    };
    toplevel->covering = (holds(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_FULLSCREEN) ||
                          holds(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MAXIMIZED)) &&
                         !holds(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
    toplevel->owner->update();
}

void ForeignToplevelCovers::onClosed(void* data, zwlr_foreign_toplevel_handle_v1* handle) {
    auto* toplevel = static_cast<Toplevel*>(data);
    ForeignToplevelCovers* self = toplevel->owner;
    zwlr_foreign_toplevel_handle_v1_destroy(handle);
    self->toplevels_.erase(std::find_if(self->toplevels_.begin(), self->toplevels_.end(),
                                        [toplevel](const auto& owned) { return owned.get() == toplevel; }));
    self->update();
}

void ForeignToplevelCovers::update() {
    QSet<QUuid> covered;
    const std::vector<WaylandMonitor*> monitors = connection_.monitors();
    for (const auto& toplevel : toplevels_) {
        if (!toplevel->covering) {
            continue;
        }
        for (const WaylandMonitor* monitor : monitors) {
            const bool entered = std::find(toplevel->outputs.begin(), toplevel->outputs.end(), monitor->output()) !=
                                 toplevel->outputs.end();
            if (entered && monitor->display()) {
                covered.insert(monitor->display()->id);
            }
        }
    }
    if (covered != covered_) {
        covered_ = std::move(covered);
        emit coveredChanged();
    }
}

} // namespace host::wayland
