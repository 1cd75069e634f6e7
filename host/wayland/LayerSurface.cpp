#include "host/wayland/LayerSurface.h"

#include "host/wayland/EglContext.h"
#include "host/wayland/WaylandConnection.h"

#include "fractional-scale-v1-client-protocol.h"
#include "viewporter-client-protocol.h"
#include "wlr-layer-shell-unstable-v1-client-protocol.h"

#include <wayland-client.h>
#include <wayland-egl.h>

namespace host::wayland {

namespace {

// The bottom layer, not the background one: background clients such as swaybg also live in
// the background layer, where the stacking of two surfaces is undefined and in practice the
// first mapped may end up on top. The bottom layer is always above every background surface
// and still below all normal windows, so the picture shows whichever started first.
constexpr std::uint32_t kLayer = ZWLR_LAYER_SHELL_V1_LAYER_BOTTOM;

constexpr std::uint32_t kAllEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                                    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;

} // namespace

LayerSurface::LayerSurface(WaylandConnection& connection, EglContext& context, wl_output* output, int scale,
                           QObject* parent)
    : QObject(parent), connection_(connection), context_(context), output_(output),
      scale_(SurfaceScale::whole(scale)) {
    static const zwlr_layer_surface_v1_listener listener = {
        .configure = &LayerSurface::onConfigure,
        .closed = &LayerSurface::onClosed,
    };
    surface_ = wl_compositor_create_surface(connection_.compositor());
    // An empty input region: pointer and touch go to whatever is below (the compositor's own
    // desktop handling), never to the wallpaper.
    wl_region* nothing = wl_compositor_create_region(connection_.compositor());
    wl_surface_set_input_region(surface_, nothing);
    wl_region_destroy(nothing);
    if (connection_.hasFractionalScale()) {
        // The buffer keeps scale 1 and the viewport shows it at the logical size, whatever the
        // scale: the compositor's preferred one comes as an event once the surface is shown.
        static const wp_fractional_scale_v1_listener scaleListener = {
            .preferred_scale = &LayerSurface::onPreferredScale,
        };
        viewport_ = wp_viewporter_get_viewport(connection_.viewporter(), surface_);
        fractionalScale_ =
            wp_fractional_scale_manager_v1_get_fractional_scale(connection_.fractionalScaleManager(), surface_);
        wp_fractional_scale_v1_add_listener(fractionalScale_, &scaleListener, this);
    } else {
        wl_surface_set_buffer_scale(surface_, scale_.bufferScale());
    }
#ifdef WL_SURFACE_PREFERRED_BUFFER_SCALE_SINCE_VERSION
    if (connection_.hasPreferredBufferScale()) {
        static const wl_surface_listener surfaceListener = {
            .enter = &LayerSurface::onEnter,
            .leave = &LayerSurface::onLeave,
            .preferred_buffer_scale = &LayerSurface::onPreferredBufferScale,
            .preferred_buffer_transform = &LayerSurface::onPreferredBufferTransform,
        };
        wl_surface_add_listener(surface_, &surfaceListener, this);
    }
#endif

    layerSurface_ =
        zwlr_layer_shell_v1_get_layer_surface(connection_.layerShell(), surface_, output_, kLayer, "wallpaper");
    zwlr_layer_surface_v1_add_listener(layerSurface_, &listener, this);
    zwlr_layer_surface_v1_set_size(layerSurface_, 0, 0);
    zwlr_layer_surface_v1_set_anchor(layerSurface_, kAllEdges);
    // -1: not moved for panels' exclusive zones; the picture reaches under them.
    zwlr_layer_surface_v1_set_exclusive_zone(layerSurface_, -1);
    zwlr_layer_surface_v1_set_keyboard_interactivity(layerSurface_,
                                                     ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    wl_surface_commit(surface_);
    wl_display_flush(connection_.display());
}

LayerSurface::~LayerSurface() {
    if (frameCallback_ != nullptr) {
        wl_callback_destroy(frameCallback_);
    }
    context_.destroySurface(eglSurface_);
    if (eglWindow_ != nullptr) {
        wl_egl_window_destroy(eglWindow_);
    }
    if (fractionalScale_ != nullptr) {
        wp_fractional_scale_v1_destroy(fractionalScale_);
    }
    if (viewport_ != nullptr) {
        wp_viewport_destroy(viewport_);
    }
    zwlr_layer_surface_v1_destroy(layerSurface_);
    wl_surface_destroy(surface_);
    wl_display_flush(connection_.display());
}

void LayerSurface::present() {
    if (eglSurface_ == EGL_NO_SURFACE) {
        return;
    }
    static const wl_callback_listener listener = {.done = &LayerSurface::onFrameDone};
    if (frameCallback_ == nullptr) {
        frameCallback_ = wl_surface_frame(surface_);
        wl_callback_add_listener(frameCallback_, &listener, this);
    }
    // The swap attaches the new buffer, damages the surface and commits (the frame request with it).
    context_.swapBuffers(eglSurface_);
}

void LayerSurface::onConfigure(void* data, zwlr_layer_surface_v1* layerSurface, std::uint32_t serial,
                               std::uint32_t width, std::uint32_t height) {
    auto* self = static_cast<LayerSurface*>(data);
    zwlr_layer_surface_v1_ack_configure(layerSurface, serial);
    const QSize size(static_cast<int>(width), static_cast<int>(height));
    if (size.isEmpty() || (size == self->logicalSize_ && self->eglSurface_ != EGL_NO_SURFACE)) {
        return;
    }
    self->logicalSize_ = size;
    self->sizeBuffer();
    emit self->configured();
}

void LayerSurface::sizeBuffer() {
    const QSize pixels = pixelSize();
    if (eglWindow_ == nullptr) {
        eglWindow_ = wl_egl_window_create(surface_, pixels.width(), pixels.height());
        eglSurface_ = context_.createWindowSurface(eglWindow_);
    } else {
        wl_egl_window_resize(eglWindow_, pixels.width(), pixels.height(), 0, 0);
    }
    if (viewport_ != nullptr) {
        wp_viewport_set_destination(viewport_, logicalSize_.width(), logicalSize_.height());
    }
}

void LayerSurface::setMonitorScale(int scale) {
    if (!scaleFromSurface_) {
        applyScale(SurfaceScale::whole(scale));
    }
}

void LayerSurface::applyScale(SurfaceScale scale) {
    if (scale == scale_) {
        return;
    }
    scale_ = scale;
    // Buffer scale, viewport and the new buffer all take effect with the next frame's commit.
    if (viewport_ == nullptr) {
        wl_surface_set_buffer_scale(surface_, scale_.bufferScale());
    }
    if (eglWindow_ != nullptr) {
        sizeBuffer();
        emit configured();
    }
}

void LayerSurface::onPreferredScale(void* data, wp_fractional_scale_v1*, std::uint32_t scale) {
    auto* self = static_cast<LayerSurface*>(data);
    self->scaleFromSurface_ = true;
    self->applyScale(SurfaceScale::fractional(static_cast<int>(scale)));
}

void LayerSurface::onEnter(void*, wl_surface*, wl_output*) {}

void LayerSurface::onLeave(void*, wl_surface*, wl_output*) {}

void LayerSurface::onPreferredBufferScale(void* data, wl_surface*, std::int32_t factor) {
    auto* self = static_cast<LayerSurface*>(data);
    if (self->fractionalScale_ == nullptr) {
        // A fractional scale, where offered, is the finer word on the same thing.
        self->scaleFromSurface_ = true;
        self->applyScale(SurfaceScale::whole(factor));
    }
}

void LayerSurface::onPreferredBufferTransform(void*, wl_surface*, std::uint32_t) {}

void LayerSurface::onClosed(void* data, zwlr_layer_surface_v1*) {
    emit static_cast<LayerSurface*>(data)->closed();
}

void LayerSurface::onFrameDone(void* data, wl_callback* callback, std::uint32_t) {
    auto* self = static_cast<LayerSurface*>(data);
    wl_callback_destroy(callback);
    self->frameCallback_ = nullptr;
    emit self->presented();
}

} // namespace host::wayland
