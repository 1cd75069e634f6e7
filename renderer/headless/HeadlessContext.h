#pragma once

#include <string>
#include <string_view>

namespace renderer::headless {

/// An OpenGL 3.3 core context without any window, current on the calling thread for as long as
/// the object lives. It is what tests, previews and benchmarks draw with: on a machine with a
/// vendor driver it runs on that GPU through the EGL device platform, elsewhere on Mesa's
/// software rasteriser through the surfaceless platform. It owns no framebuffer of its own;
/// one display at a time per process (closing it terminates the EGL display it opened), with
/// one context, or more that share their objects with the first;
/// drawing goes into framebuffer objects such as `OffscreenTarget`.
class HeadlessContext {
public:
    /// Which EGL platform the display was opened on.
    enum class Platform {
        /// Let the context choose: a hardware device first, then Mesa surfaceless, then any
        /// device, then the default display.
        AUTO,
        /// `EGL_EXT_platform_device`: a hardware device where there is one, else (asked for
        /// by name, or for AUTO after surfaceless failed) Mesa's software device.
        DEVICE,
        /// `EGL_MESA_platform_surfaceless`, which is Mesa's software rasteriser where no GPU is.
        SURFACELESS,
        /// `eglGetDisplay(EGL_DEFAULT_DISPLAY)`.
        DEFAULT_DISPLAY,
    };

    /// Opens a display on `platform` (or the best one available for AUTO), creates an OpenGL
    /// 3.3 core context and makes it current without a surface. Throws std::runtime_error
    /// naming the step that failed when no such context can be had.
    explicit HeadlessContext(Platform platform = Platform::AUTO);
    /// A second context on the display of `*group`, sharing its objects (buffers, textures,
    /// samplers, programs), and made current: two monitors' contexts, for tests. It must go
    /// before `*group`, which alone closes the display. Throws as the other constructor does.
    explicit HeadlessContext(const HeadlessContext* group);
    /// Releases the context and the display.
    ~HeadlessContext();

    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;

    /// The platform that the display was actually opened on (never AUTO).
    Platform platform() const { return platform_; }
    /// GL_RENDERER of the context, e.g. "llvmpipe (LLVM 15.0.6, 256 bits)".
    const std::string& rendererName() const { return rendererName_; }
    /// GL_VERSION of the context.
    const std::string& versionString() const { return versionString_; }
    /// Whether the context offers the GL extension `name`.
    bool hasExtension(const char* name) const;
    /// Makes the context current on the calling thread again (after another context was).
    void makeCurrent() const;

private:
    Platform platform_ = Platform::AUTO;
    void* display_ = nullptr;
    void* context_ = nullptr;
    void* config_ = nullptr;
    bool ownsDisplay_ = true;
    std::string rendererName_;
    std::string versionString_;
};

/// The name of a platform constant: "AUTO", "DEVICE", "SURFACELESS" or "DEFAULT_DISPLAY".
std::string_view toString(HeadlessContext::Platform platform);

} // namespace renderer::headless
