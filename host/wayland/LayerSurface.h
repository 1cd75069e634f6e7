#pragma once

#include <QObject>
#include <QSize>

#include <epoxy/egl.h>

struct wl_callback;
struct wl_egl_window;
struct wl_output;
struct wl_surface;
struct zwlr_layer_surface_v1;

namespace host::wayland {

class EglContext;
class WaylandConnection;

/// The wallpaper's surface on one monitor: a layer surface below the windows, anchored to all
/// four edges, reaching under panels (exclusive zone -1), taking neither keyboard nor pointer
/// (an empty input region), with an EGL window surface of the size the compositor configures.
///
/// It is mapped by the first frame presented after the compositor's first `configure`. Each
/// present asks the compositor for a frame callback; `presented` reports it, so a surface
/// that is not shown (no callbacks) gets no further frames.
class LayerSurface : public QObject {
    Q_OBJECT
public:
    /// A surface on `output` (the compositor's choice when null), committed without a buffer
    /// so that the compositor configures it; `context` draws into it. Both must outlive it.
    LayerSurface(WaylandConnection& connection, EglContext& context, wl_output* output, int scale,
                 QObject* parent = nullptr);
    ~LayerSurface() override;

    /// Whether a configure has arrived, so that a frame can be drawn.
    bool isConfigured() const { return eglSurface_ != EGL_NO_SURFACE; }
    /// The size in device pixels.
    QSize pixelSize() const { return logicalSize_ * scale_; }
    /// Device pixels per surface pixel.
    int scale() const { return scale_; }
    /// The EGL surface; EGL_NO_SURFACE before the first configure.
    EGLSurface eglSurface() const { return eglSurface_; }
    /// The output it was made for.
    wl_output* output() const { return output_; }

    /// Asks for a frame callback, then swaps: the frame becomes the surface's content.
    void present();

signals:
    /// The compositor set (or changed) the size: a frame should be drawn now.
    void configured();
    /// The frame last presented was shown; the next one may come.
    void presented();
    /// The compositor will not show the surface any more (its monitor went away).
    void closed();

private:
    static void onConfigure(void* data, zwlr_layer_surface_v1*, std::uint32_t serial, std::uint32_t width,
                            std::uint32_t height);
    static void onClosed(void* data, zwlr_layer_surface_v1*);
    static void onFrameDone(void* data, wl_callback* callback, std::uint32_t time);

    WaylandConnection& connection_;
    EglContext& context_;
    wl_output* output_;
    int scale_;
    wl_surface* surface_ = nullptr;
    zwlr_layer_surface_v1* layerSurface_ = nullptr;
    wl_egl_window* eglWindow_ = nullptr;
    EGLSurface eglSurface_ = EGL_NO_SURFACE;
    wl_callback* frameCallback_ = nullptr;
    QSize logicalSize_;
};

} // namespace host::wayland
