#include "host/wayland/WaylandConnection.h"

#include "host/wayland/WaylandMonitor.h"

#include "fractional-scale-v1-client-protocol.h"
#include "viewporter-client-protocol.h"
#include "wlr-foreign-toplevel-management-unstable-v1-client-protocol.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <wayland-client.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace host::wayland {

namespace {

// Versions the program speaks: name and description of monitors came with wl_output 4; each
// surface's preferred buffer scale came with wl_compositor 6, which only headers that know its
// event can listen to (an event the listener lacks would end the connection).
#ifdef WL_SURFACE_PREFERRED_BUFFER_SCALE_SINCE_VERSION
constexpr std::uint32_t kCompositorVersion = WL_SURFACE_PREFERRED_BUFFER_SCALE_SINCE_VERSION;
#else
constexpr std::uint32_t kCompositorVersion = 4;
#endif
constexpr std::uint32_t kOutputVersion = 4;
constexpr std::uint32_t kLayerShellVersion = 1;

} // namespace

std::unique_ptr<WaylandConnection> WaylandConnection::connect() {
    wl_display* display = wl_display_connect(nullptr);
    if (display == nullptr) {
        return nullptr;
    }
    std::unique_ptr<WaylandConnection> connection(new WaylandConnection(display));
    // First the globals, then the monitors' descriptions they trigger.
    if (wl_display_roundtrip(display) < 0 || wl_display_roundtrip(display) < 0) {
        return nullptr;
    }
    return connection;
}

WaylandConnection::WaylandConnection(wl_display* display) : display_(display) {
    static const wl_registry_listener listener = {
        .global = &WaylandConnection::onGlobal,
        .global_remove = &WaylandConnection::onGlobalRemove,
    };
    registry_ = wl_display_get_registry(display_);
    wl_registry_add_listener(registry_, &listener, this);
}

WaylandConnection::~WaylandConnection() {
    delete notifier_;
    monitors_.clear();
    if (fractionalScaleManager_ != nullptr) {
        wp_fractional_scale_manager_v1_destroy(fractionalScaleManager_);
    }
    if (viewporter_ != nullptr) {
        wp_viewporter_destroy(viewporter_);
    }
    if (layerShell_ != nullptr) {
        zwlr_layer_shell_v1_destroy(layerShell_);
    }
    if (compositor_ != nullptr) {
        wl_compositor_destroy(compositor_);
    }
    wl_registry_destroy(registry_);
    wl_display_flush(display_);
    wl_display_disconnect(display_);
}

bool WaylandConnection::hasPreferredBufferScale() const {
#ifdef WL_SURFACE_PREFERRED_BUFFER_SCALE_SINCE_VERSION
    return compositor_ != nullptr &&
           wl_compositor_get_version(compositor_) >= WL_SURFACE_PREFERRED_BUFFER_SCALE_SINCE_VERSION;
#else
    return false;
#endif
}

std::vector<WaylandMonitor*> WaylandConnection::monitors() const {
    std::vector<WaylandMonitor*> result;
    for (const auto& monitor : monitors_) {
        if (monitor->isDescribed()) {
            result.push_back(monitor.get());
        }
    }
    return result;
}

void WaylandConnection::attachToEventLoop() {
    if (notifier_ != nullptr) {
        return;
    }
    notifier_ = new QSocketNotifier(wl_display_get_fd(display_), QSocketNotifier::Read);
    QObject::connect(notifier_, &QSocketNotifier::activated, this, &WaylandConnection::readEvents);
    // Requests made during a turn of the loop leave before it sleeps.
    QObject::connect(QCoreApplication::eventDispatcher(), &QAbstractEventDispatcher::aboutToBlock, this,
                     &WaylandConnection::flush);
    flush();
}

void WaylandConnection::flush() {
    if (lost_) {
        return;
    }
    wl_display_dispatch_pending(display_);
    if (wl_display_flush(display_) < 0 && errno != EAGAIN) {
        lost_ = true;
        notifier_->setEnabled(false);
        emit lost();
    }
}

void WaylandConnection::readEvents() {
    if (lost_) {
        return;
    }
    while (wl_display_prepare_read(display_) != 0) {
        wl_display_dispatch_pending(display_);
    }
    if (wl_display_read_events(display_) < 0 || wl_display_dispatch_pending(display_) < 0) {
        lost_ = true;
        notifier_->setEnabled(false);
        emit lost();
    }
}

void WaylandConnection::onGlobal(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                                 std::uint32_t version) {
    auto* self = static_cast<WaylandConnection*>(data);
    if (std::strcmp(interface, wl_compositor_interface.name) == 0) {
        self->compositor_ = static_cast<wl_compositor*>(
            wl_registry_bind(registry, name, &wl_compositor_interface, std::min(version, kCompositorVersion)));
    } else if (std::strcmp(interface, zwlr_layer_shell_v1_interface.name) == 0) {
        self->layerShell_ = static_cast<zwlr_layer_shell_v1*>(
            wl_registry_bind(registry, name, &zwlr_layer_shell_v1_interface, kLayerShellVersion));
    } else if (std::strcmp(interface, wp_fractional_scale_manager_v1_interface.name) == 0) {
        self->fractionalScaleManager_ = static_cast<wp_fractional_scale_manager_v1*>(
            wl_registry_bind(registry, name, &wp_fractional_scale_manager_v1_interface, 1));
    } else if (std::strcmp(interface, wp_viewporter_interface.name) == 0) {
        self->viewporter_ =
            static_cast<wp_viewporter*>(wl_registry_bind(registry, name, &wp_viewporter_interface, 1));
    } else if (std::strcmp(interface, zwlr_foreign_toplevel_manager_v1_interface.name) == 0) {
        // Bound by whoever listens: its first events come at once.
        self->toplevelManagerName_ = name;
        self->toplevelManagerVersion_ = version;
    } else if (std::strcmp(interface, wl_output_interface.name) == 0) {
        auto* output = static_cast<wl_output*>(
            wl_registry_bind(registry, name, &wl_output_interface, std::min(version, kOutputVersion)));
        auto monitor = std::make_unique<WaylandMonitor>(output, name);
        QObject::connect(monitor.get(), &WaylandMonitor::described, self, &WaylandConnection::monitorsChanged);
        self->monitors_.push_back(std::move(monitor));
    }
}

zwlr_foreign_toplevel_manager_v1* WaylandConnection::bindToplevelManager() {
    if (toplevelManagerName_ == 0) {
        return nullptr;
    }
    return static_cast<zwlr_foreign_toplevel_manager_v1*>(
        wl_registry_bind(registry_, toplevelManagerName_, &zwlr_foreign_toplevel_manager_v1_interface,
                         std::min<std::uint32_t>(toplevelManagerVersion_, 3)));
}

void WaylandConnection::onGlobalRemove(void* data, wl_registry*, std::uint32_t name) {
    auto* self = static_cast<WaylandConnection*>(data);
    auto it = std::find_if(self->monitors_.begin(), self->monitors_.end(),
                           [name](const auto& monitor) { return monitor->globalName() == name; });
    if (it != self->monitors_.end()) {
        self->monitors_.erase(it);
        emit self->monitorsChanged();
    }
}

} // namespace host::wayland
