#include "renderer/headless/HeadlessContext.h"

#include <epoxy/egl.h>
#include <epoxy/gl.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace renderer::headless {

namespace {

bool hasToken(const char* list, const char* token) {
    if (list == nullptr) {
        return false;
    }
    const std::size_t length = std::strlen(token);
    for (const char* p = list; (p = std::strstr(p, token)) != nullptr; p += length) {
        const bool startOk = p == list || p[-1] == ' ';
        const bool endOk = p[length] == '\0' || p[length] == ' ';
        if (startOk && endOk) {
            return true;
        }
    }
    return false;
}

bool hasClientExtension(const char* name) {
    return hasToken(eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS), name);
}

// The first EGL device that `accept` likes, or EGL_NO_DEVICE_EXT.
template <typename Accept> EGLDeviceEXT findDevice(Accept accept) {
    if (!hasClientExtension("EGL_EXT_device_enumeration") || !hasClientExtension("EGL_EXT_platform_device")) {
        return EGL_NO_DEVICE_EXT;
    }
    std::array<EGLDeviceEXT, 16> devices{};
    EGLint count = 0;
    if (!eglQueryDevicesEXT(static_cast<EGLint>(devices.size()), devices.data(), &count)) {
        return EGL_NO_DEVICE_EXT;
    }
    for (EGLint i = 0; i < count; ++i) {
        if (accept(eglQueryDeviceStringEXT(devices[static_cast<std::size_t>(i)], EGL_EXTENSIONS))) {
            return devices[static_cast<std::size_t>(i)];
        }
    }
    return EGL_NO_DEVICE_EXT;
}

bool isSoftwareDevice(const char* extensions) { return hasToken(extensions, "EGL_MESA_device_software"); }

EGLDisplay initialized(EGLDisplay display) {
    if (display == EGL_NO_DISPLAY) {
        return EGL_NO_DISPLAY;
    }
    EGLint major = 0;
    EGLint minor = 0;
    if (!eglInitialize(display, &major, &minor)) {
        return EGL_NO_DISPLAY;
    }
    return display;
}

EGLDisplay openDevice(bool allowSoftware) {
    EGLDeviceEXT device = findDevice([&](const char* ext) { return allowSoftware || !isSoftwareDevice(ext); });
    if (device == EGL_NO_DEVICE_EXT) {
        return EGL_NO_DISPLAY;
    }
    return initialized(eglGetPlatformDisplayEXT(EGL_PLATFORM_DEVICE_EXT, device, nullptr));
}

EGLDisplay openSurfaceless() {
    if (!hasClientExtension("EGL_MESA_platform_surfaceless")) {
        return EGL_NO_DISPLAY;
    }
    return initialized(eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr));
}

EGLDisplay openDefault() { return initialized(eglGetDisplay(EGL_DEFAULT_DISPLAY)); }

std::string glString(GLenum name) {
    const auto* text = reinterpret_cast<const char*>(glGetString(name));
    return text == nullptr ? std::string() : std::string(text);
}

[[noreturn]] void fail(const std::string& step) {
    char code[16];
    std::snprintf(code, sizeof code, "0x%04X", static_cast<unsigned>(eglGetError()));
    throw std::runtime_error("Cannot create headless OpenGL context: " + step + " (EGL error " + code + ")");
}

const EGLint CONTEXT_ATTRIBUTES[] = {EGL_CONTEXT_MAJOR_VERSION, 3, EGL_CONTEXT_MINOR_VERSION, 3,
                                     EGL_CONTEXT_OPENGL_PROFILE_MASK, EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                     EGL_NONE};

} // namespace

HeadlessContext::HeadlessContext(Platform platform) {
    EGLDisplay display = EGL_NO_DISPLAY;
    switch (platform) {
    case Platform::AUTO:
        if ((display = openDevice(false)) != EGL_NO_DISPLAY) {
            platform_ = Platform::DEVICE;
        } else if ((display = openSurfaceless()) != EGL_NO_DISPLAY) {
            platform_ = Platform::SURFACELESS;
        } else if ((display = openDevice(true)) != EGL_NO_DISPLAY) {
            platform_ = Platform::DEVICE;
        } else if ((display = openDefault()) != EGL_NO_DISPLAY) {
            platform_ = Platform::DEFAULT_DISPLAY;
        }
        break;
    case Platform::DEVICE:
        // A GPU first, whatever order the devices are listed in; Mesa's software one otherwise.
        if ((display = openDevice(false)) == EGL_NO_DISPLAY) {
            display = openDevice(true);
        }
        platform_ = platform;
        break;
    case Platform::SURFACELESS:
        display = openSurfaceless();
        platform_ = platform;
        break;
    case Platform::DEFAULT_DISPLAY:
        display = openDefault();
        platform_ = platform;
        break;
    }
    if (display == EGL_NO_DISPLAY) {
        fail(std::string("no EGL display on platform ") + std::string(toString(platform)));
    }
    display_ = display;

    if (!eglBindAPI(EGL_OPENGL_API)) {
        eglTerminate(display);
        fail("eglBindAPI(EGL_OPENGL_API)");
    }
    // Configless where the display allows it (no surface is ever made), else any GL config.
    EGLConfig config = EGL_NO_CONFIG_KHR;
    const char* displayExtensions = eglQueryString(display, EGL_EXTENSIONS);
    if (!hasToken(displayExtensions, "EGL_KHR_no_config_context") &&
        !hasToken(displayExtensions, "EGL_MESA_configless_context")) {
        const EGLint configAttributes[] = {EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT, EGL_NONE};
        EGLint count = 0;
        if (!eglChooseConfig(display, configAttributes, &config, 1, &count) || count == 0) {
            eglTerminate(display);
            fail("no OpenGL config");
        }
    }
    EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, CONTEXT_ATTRIBUTES);
    if (context == EGL_NO_CONTEXT) {
        eglTerminate(display);
        fail("eglCreateContext for OpenGL 3.3 core");
    }
    if (!eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context)) {
        eglDestroyContext(display, context);
        eglTerminate(display);
        fail("eglMakeCurrent without a surface");
    }
    context_ = context;
    config_ = config;
    rendererName_ = glString(GL_RENDERER);
    versionString_ = glString(GL_VERSION);
}

HeadlessContext::HeadlessContext(const HeadlessContext* group)
    : platform_(group->platform_), display_(group->display_), config_(group->config_), ownsDisplay_(false),
      rendererName_(group->rendererName_), versionString_(group->versionString_) {
    auto display = static_cast<EGLDisplay>(display_);
    EGLContext context = eglCreateContext(display, static_cast<EGLConfig>(config_),
                                          static_cast<EGLContext>(group->context_), CONTEXT_ATTRIBUTES);
    if (context == EGL_NO_CONTEXT) {
        fail("eglCreateContext sharing another context");
    }
    if (!eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context)) {
        eglDestroyContext(display, context);
        fail("eglMakeCurrent without a surface");
    }
    context_ = context;
}

HeadlessContext::~HeadlessContext() {
    auto display = static_cast<EGLDisplay>(display_);
    if (!ownsDisplay_) {
        if (eglGetCurrentContext() == static_cast<EGLContext>(context_)) {
            eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        }
        eglDestroyContext(display, static_cast<EGLContext>(context_));
        return;
    }
    eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display, static_cast<EGLContext>(context_));
    eglTerminate(display);
    eglReleaseThread();
}

bool HeadlessContext::hasExtension(const char* name) const { return epoxy_has_gl_extension(name); }

void HeadlessContext::makeCurrent() const {
    eglMakeCurrent(static_cast<EGLDisplay>(display_), EGL_NO_SURFACE, EGL_NO_SURFACE,
                   static_cast<EGLContext>(context_));
}

std::string_view toString(HeadlessContext::Platform platform) {
    switch (platform) {
    case HeadlessContext::Platform::AUTO:
        return "AUTO";
    case HeadlessContext::Platform::DEVICE:
        return "DEVICE";
    case HeadlessContext::Platform::SURFACELESS:
        return "SURFACELESS";
    case HeadlessContext::Platform::DEFAULT_DISPLAY:
        return "DEFAULT_DISPLAY";
    }
    return "AUTO";
}

} // namespace renderer::headless
