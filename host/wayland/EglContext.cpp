#include "host/wayland/EglContext.h"

#include <algorithm>
#include <vector>

namespace host::wayland {

namespace {

// The contexts that exist now. One display is opened per connection and shared by them all; a
// new context shares objects with the first one on its display, so that every monitor's
// renderer can take the assets another loaded, and the display is terminated with the last.
std::vector<EglContext*>& liveContexts() {
    static std::vector<EglContext*> contexts;
    return contexts;
}

} // namespace

std::unique_ptr<EglContext> EglContext::create(wl_display* display) {
    std::unique_ptr<EglContext> result(new EglContext());
    // The platform display where the client extension says Wayland is known; the plain call
    // otherwise, which Mesa also recognises a Wayland display by.
    if (epoxy_has_egl_extension(EGL_NO_DISPLAY, "EGL_EXT_platform_wayland") ||
        epoxy_has_egl_extension(EGL_NO_DISPLAY, "EGL_KHR_platform_wayland")) {
        result->display_ = eglGetPlatformDisplayEXT(EGL_PLATFORM_WAYLAND_EXT, display, nullptr);
    } else {
        result->display_ = eglGetDisplay(reinterpret_cast<EGLNativeDisplayType>(display));
    }
    if (result->display_ == EGL_NO_DISPLAY || eglInitialize(result->display_, nullptr, nullptr) == EGL_FALSE) {
        result->display_ = EGL_NO_DISPLAY;
        return nullptr;
    }
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) {
        return nullptr;
    }
    // Opaque RGB: the renderer resolves its own multisampled depth target into this surface.
    const EGLint configAttributes[] = {EGL_SURFACE_TYPE, EGL_WINDOW_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                                       EGL_RED_SIZE, 8, EGL_GREEN_SIZE, 8, EGL_BLUE_SIZE, 8, EGL_NONE};
    EGLint count = 0;
    if (eglChooseConfig(result->display_, configAttributes, &result->config_, 1, &count) == EGL_FALSE ||
        count < 1) {
        return nullptr;
    }
    const EGLint contextAttributes[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3,
                                        EGL_CONTEXT_OPENGL_PROFILE_MASK, EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                        EGL_NONE};
    EGLContext share = EGL_NO_CONTEXT;
    for (EglContext* other : liveContexts()) {
        if (other->display_ == result->display_) {
            share = other->context_;
            break;
        }
    }
    result->context_ = eglCreateContext(result->display_, result->config_, share, contextAttributes);
    if (result->context_ == EGL_NO_CONTEXT) {
        // The renderers key their shared assets by the display: a context that cannot share
        // with the others must not be had at all.
        return nullptr;
    }
    liveContexts().push_back(result.get());
    result->surfaceless_ = epoxy_has_egl_extension(result->display_, "EGL_KHR_surfaceless_context");
    return result;
}

EglContext::~EglContext() {
    std::erase(liveContexts(), this);
    if (display_ == EGL_NO_DISPLAY) {
        return;
    }
    if (eglGetCurrentContext() == context_) {
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    if (context_ != EGL_NO_CONTEXT) {
        eglDestroyContext(display_, context_);
    }
    // Terminating the display would take the other monitors' contexts with it.
    const bool displayInUse = std::any_of(liveContexts().begin(), liveContexts().end(),
                                          [this](const EglContext* other) { return other->display_ == display_; });
    if (!displayInUse) {
        eglTerminate(display_);
    }
}

EGLSurface EglContext::createWindowSurface(void* eglWindow) {
    return eglCreateWindowSurface(display_, config_, reinterpret_cast<EGLNativeWindowType>(eglWindow), nullptr);
}

void EglContext::destroySurface(EGLSurface surface) {
    if (surface == EGL_NO_SURFACE) {
        return;
    }
    if (eglGetCurrentSurface(EGL_DRAW) == surface) {
        makeCurrent(EGL_NO_SURFACE);
    }
    eglDestroySurface(display_, surface);
}

bool EglContext::makeCurrent(EGLSurface surface) {
    if (surface == EGL_NO_SURFACE && !surfaceless_) {
        // Without surfaceless contexts the context stays on the last surface it had; GL work
        // without a surface (making or freeing objects) needs no particular drawable.
        return eglGetCurrentContext() == context_ ||
               eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, context_) == EGL_TRUE;
    }
    if (eglMakeCurrent(display_, surface, surface, context_) == EGL_FALSE) {
        return false;
    }
    if (surface != EGL_NO_SURFACE) {
        // Frames are paced by the compositor's frame callbacks, which the wallpaper asks for
        // itself: a swap must never block waiting for one (a hidden surface gets none).
        eglSwapInterval(display_, 0);
    }
    return true;
}

void EglContext::swapBuffers(EGLSurface surface) {
    eglSwapBuffers(display_, surface);
}

} // namespace host::wayland
