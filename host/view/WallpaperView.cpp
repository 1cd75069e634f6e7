#include "host/view/WallpaperView.h"

#include <QExposeEvent>
#include <QOpenGLContext>
#include <QSurfaceFormat>

#include <vector>

namespace host::view {

namespace {

QSurfaceFormat viewFormat() {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setRedBufferSize(8);
    format.setGreenBufferSize(8);
    format.setBlueBufferSize(8);
    format.setAlphaBufferSize(0);
    // The renderer draws into its own multisampled depth target and resolves into this one.
    format.setDepthBufferSize(0);
    format.setStencilBufferSize(0);
    format.setSamples(0);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setSwapInterval(1);
    return format;
}

// The views' contexts that exist now: a new one shares objects with the first of them, so that
// every monitor's renderer can take the assets another loaded.
std::vector<QOpenGLContext*>& liveContexts() {
    static std::vector<QOpenGLContext*> contexts;
    return contexts;
}

} // namespace

WallpaperView::WallpaperView(SceneContent& content, clock::ClockStyleManager& clockStyle, QWindow* parent)
    : QWindow(parent), driver_(content, clockStyle, *this) {
    setSurfaceType(QWindow::OpenGLSurface);
    setFormat(viewFormat());
    setFlags(flags() | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    connect(&driver_, &FrameDriver::appeared, this, &WallpaperView::appeared);
    connect(&driver_, &FrameDriver::frameDrawn, this, &WallpaperView::frameDrawn);
}

WallpaperView::~WallpaperView() {
    driver_.release();
    if (context_ != nullptr) {
        context_->doneCurrent();
    }
    releaseContext();
}

void WallpaperView::releaseContext() {
    std::erase(liveContexts(), context_.get());
    context_.reset();
}

void WallpaperView::appear() {
    if (driver_.hasAppeared()) {
        return;
    }
    create();
    context_ = std::make_unique<QOpenGLContext>();
    context_->setFormat(format());
    if (!liveContexts().empty()) {
        // Where sharing cannot be had, Qt makes the context alone, in a share group of its own,
        // and its renderer loads assets of its own.
        context_->setShareContext(liveContexts().front());
    }
    if (!context_->create()) {
        context_.reset();
    } else {
        liveContexts().push_back(context_.get());
    }
    driver_.appear();
    if (!driver_.hasAppeared()) {
        releaseContext();
    }
}

bool WallpaperView::makeCurrent() {
    return context_ != nullptr && handle() != nullptr && context_->makeCurrent(this);
}

bool WallpaperView::hasRequiredVersion() const {
    const QSurfaceFormat actual = context_->format();
    return actual.majorVersion() * 10 + actual.minorVersion() >= 33;
}

bool WallpaperView::canDraw() const {
    return isExposed();
}

QSize WallpaperView::pixelSize() const {
    const qreal dpr = QWindow::devicePixelRatio();
    return QSize(static_cast<int>(width() * dpr), static_cast<int>(height() * dpr));
}

double WallpaperView::devicePixelRatio() const {
    return QWindow::devicePixelRatio();
}

unsigned WallpaperView::framebuffer() const {
    return context_->defaultFramebufferObject();
}

void WallpaperView::present() {
    context_->swapBuffers(this);
}

void WallpaperView::exposeEvent(QExposeEvent*) {
    if (isExposed()) {
        driver_.renderNow();
    }
}

void WallpaperView::resizeEvent(QResizeEvent*) {
    driver_.surfaceResized();
}

} // namespace host::view
