#pragma once

#include <epoxy/egl.h>

#include <memory>

struct wl_display;

namespace host::wayland {

/// An OpenGL 3.3 core context on the Wayland connection's EGL display, shared by every layer
/// surface the wallpaper makes, so that the renderer and its assets outlive the surfaces. The
/// contexts of the process (one per monitor) share objects with each other, so that the
/// renderers of the monitors share one set of assets; the display stays open while any lives.
class EglContext {
public:
    /// The context on `display`; null when EGL or OpenGL 3.3 core cannot be had.
    static std::unique_ptr<EglContext> create(wl_display* display);
    ~EglContext();
    EglContext(const EglContext&) = delete;
    EglContext& operator=(const EglContext&) = delete;

    /// A window surface over a `wl_egl_window`; EGL_NO_SURFACE on failure.
    EGLSurface createWindowSurface(void* eglWindow);
    /// Frees a surface made by `createWindowSurface`.
    void destroySurface(EGLSurface surface);

    /// Makes the context current on `surface`, or without one (to make or free GL objects while
    /// no surface exists); false on failure.
    bool makeCurrent(EGLSurface surface);
    /// Presents `surface`.
    void swapBuffers(EGLSurface surface);

private:
    EglContext() = default;

    EGLDisplay display_ = EGL_NO_DISPLAY;
    EGLConfig config_ = nullptr;
    EGLContext context_ = EGL_NO_CONTEXT;
    bool surfaceless_ = false;
};

} // namespace host::wayland
