#include "host/view/NivalisContent.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

namespace host::view {

namespace {

// Stands in for the scene's renderer until it exists: a plain polar-night blue.
class PlainRenderer : public FrameRenderer {
public:
    void drawFrame(unsigned framebuffer, int width, int height) override {
        QOpenGLFunctions* gl = QOpenGLContext::currentContext()->functions();
        gl->glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
        gl->glViewport(0, 0, width, height);
        gl->glClearColor(0.05f, 0.12f, 0.22f, 1.0f);
        gl->glClear(GL_COLOR_BUFFER_BIT);
    }
    void updateDynamicTimeOfDay() override {}
    void setTimeOfDay(engine::utils::TimeOfDay) override {}
};

} // namespace

struct NivalisContent::Scene {
    bool vignette = true;
    float cameraPeriod = 1.5f;
};

NivalisContent::NivalisContent(QString resourcesDirectory)
    : resourcesDirectory_(std::move(resourcesDirectory)), scene_(std::make_unique<Scene>()) {}

NivalisContent::~NivalisContent() = default;

std::unique_ptr<FrameRenderer> NivalisContent::makeRenderer() {
    return std::make_unique<PlainRenderer>();
}

void NivalisContent::setSceneSettings(bool vignette, float cameraPeriod) {
    scene_->vignette = vignette;
    scene_->cameraPeriod = cameraPeriod;
}

} // namespace host::view
