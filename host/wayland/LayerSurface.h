#pragma once

#include "host/wayland/SurfaceScale.h"

#include <QObject>
#include <QSize>

#include <epoxy/egl.h>

struct wl_callback;
struct wl_egl_window;
struct wl_output;
struct wl_surface;
struct wp_fractional_scale_v1;
struct wp_viewport;
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
///
/// Its buffer follows the scale, which may change while it is shown: the compositor's
/// fractional scale for the surface where offered (a buffer of that many pixels at buffer scale
/// 1, shown at the logical size through a viewport), else the surface's preferred buffer scale
/// where told, else its monitor's scale.
class LayerSurface : public QObject {
    Q_OBJECT
public:
    /// A surface on `output` (the compositor's choice when null) at the monitor's `scale` until
    /// told otherwise, committed without a buffer so that the compositor configures it;
    /// `context` draws into it. Both must outlive it.
    LayerSurface(WaylandConnection& connection, EglContext& context, wl_output* output, int scale,
                 QObject* parent = nullptr);
    ~LayerSurface() override;

    /// Whether a configure has arrived, so that a frame can be drawn.
    bool isConfigured() const { return eglSurface_ != EGL_NO_SURFACE; }
    /// The size of its buffer in device pixels.
    QSize pixelSize() const { return scale_.bufferSize(logicalSize_); }
    /// Device pixels per logical pixel, fractional where the compositor asks for it.
    double devicePixelRatio() const { return scale_.ratio(); }
    /// The EGL surface; EGL_NO_SURFACE before the first configure.
    EGLSurface eglSurface() const { return eglSurface_; }
    /// The output it was made for.
    wl_output* output() const { return output_; }

    /// Asks for a frame callback, then swaps: the frame becomes the surface's content.
    void present();
    /// The monitor's scale changed to `scale`: the buffer takes it, unless the compositor tells
    /// this surface its scale itself, which then wins.
    void setMonitorScale(int scale);

signals:
    /// The compositor set (or changed) the size, or the scale changed: a frame should be drawn
    /// now, at the new pixel size.
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
    static void onPreferredScale(void* data, wp_fractional_scale_v1*, std::uint32_t scale);
    static void onEnter(void* data, wl_surface*, wl_output*);
    static void onLeave(void* data, wl_surface*, wl_output*);
    static void onPreferredBufferScale(void* data, wl_surface*, std::int32_t factor);
    static void onPreferredBufferTransform(void* data, wl_surface*, std::uint32_t transform);

    // Takes `scale` for the buffer; when it differs, resizes the buffer and asks for a frame.
    void applyScale(SurfaceScale scale);
    // Gives the EGL window the pixel size (making it on the first call) and the viewport the
    // logical size.
    void sizeBuffer();

    WaylandConnection& connection_;
    EglContext& context_;
    wl_output* output_;
    SurfaceScale scale_;
    // Whether the compositor told the surface its scale, so that the monitor's no longer counts.
    bool scaleFromSurface_ = false;
    wl_surface* surface_ = nullptr;
    wp_viewport* viewport_ = nullptr;
    wp_fractional_scale_v1* fractionalScale_ = nullptr;
    zwlr_layer_surface_v1* layerSurface_ = nullptr;
    wl_egl_window* eglWindow_ = nullptr;
    EGLSurface eglSurface_ = EGL_NO_SURFACE;
    wl_callback* frameCallback_ = nullptr;
    QSize logicalSize_;
};

} // namespace host::wayland
