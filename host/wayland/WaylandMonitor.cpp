#include "host/wayland/WaylandMonitor.h"

#include "host/window/DisplayCatalogue.h"

#include <wayland-client.h>

namespace host::wayland {

WaylandMonitor::WaylandMonitor(wl_output* output, std::uint32_t globalName, QObject* parent)
    : QObject(parent), output_(output), globalName_(globalName) {
    static const wl_output_listener listener = {
        .geometry = &WaylandMonitor::onGeometry,
        .mode = &WaylandMonitor::onMode,
        .done = &WaylandMonitor::onDone,
        .scale = &WaylandMonitor::onScale,
        .name = &WaylandMonitor::onName,
        .description = &WaylandMonitor::onDescription,
    };
    wl_output_add_listener(output_, &listener, this);
}

WaylandMonitor::~WaylandMonitor() {
    if (wl_output_get_version(output_) >= WL_OUTPUT_RELEASE_SINCE_VERSION) {
        wl_output_release(output_);
    } else {
        wl_output_destroy(output_);
    }
}

std::optional<window::Display> WaylandMonitor::display() const {
    return window::Display::fromIdentity(make_, model_, QString(), name_);
}

QString WaylandMonitor::label() const {
    return window::DisplayCatalogue::label(make_, model_, name_);
}

void WaylandMonitor::onGeometry(void* data, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                                std::int32_t, const char* make, const char* model, std::int32_t) {
    auto* self = static_cast<WaylandMonitor*>(data);
    self->make_ = QString::fromUtf8(make);
    self->model_ = QString::fromUtf8(model);
}

void WaylandMonitor::onMode(void* data, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height,
                            std::int32_t) {
    if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
        static_cast<WaylandMonitor*>(data)->pixelSize_ = QSize(width, height);
    }
}

void WaylandMonitor::onDone(void* data, wl_output*) {
    auto* self = static_cast<WaylandMonitor*>(data);
    const bool rescaled = self->described_ && self->scale_ != self->describedScale_;
    self->described_ = true;
    self->describedScale_ = self->scale_;
    emit self->described();
    if (rescaled) {
        emit self->scaleChanged(self->scale_);
    }
}

void WaylandMonitor::onScale(void* data, wl_output*, std::int32_t factor) {
    static_cast<WaylandMonitor*>(data)->scale_ = factor > 0 ? factor : 1;
}

void WaylandMonitor::onName(void* data, wl_output*, const char* name) {
    static_cast<WaylandMonitor*>(data)->name_ = QString::fromUtf8(name);
}

void WaylandMonitor::onDescription(void* data, wl_output*, const char* description) {
    static_cast<WaylandMonitor*>(data)->description_ = QString::fromUtf8(description);
}

} // namespace host::wayland
