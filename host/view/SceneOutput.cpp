#include "host/view/SceneOutput.h"

#include "host/clock/ClockFonts.h"
#include "host/settings/Settings.h"
#include "host/view/FrameRenderer.h"
#include "host/view/ChosenSceneContent.h"
#include "host/view/Resources.h"

#include <QDir>

namespace host::view {

SceneOutput::SceneOutput(std::unique_ptr<SceneContent> content) : content_(std::move(content)) {}

SceneOutput::~SceneOutput() = default;

std::unique_ptr<SceneContent> SceneOutput::chosenContent(settings::Settings& settings, int cameraPath) {
    const QString resources = Resources::directory();
    clock::ClockFonts::instance().loadFrom(QDir(resources).filePath(QStringLiteral("fonts")));
    return std::make_unique<ChosenSceneContent>(resources, settings.scene.read(),
                                                [&settings] { return settings.sceneTime.read(); }, cameraPath);
}

void SceneOutput::setScene(const QString& name) {
    if (content_->setScene(name)) {
        rebuildContent();
    }
}

void SceneOutput::setSceneSettings(bool vignette, float cameraPeriod) {
    content_->setSceneSettings(vignette, cameraPeriod);
}

bool SceneOutput::hasRenderer() const {
    return ownRenderer() != nullptr;
}

void SceneOutput::setTimeOfDay(engine::utils::TimeOfDay timeOfDay) {
    if (FrameRenderer* renderer = ownRenderer()) {
        renderer->setTimeOfDay(timeOfDay);
    }
}

void SceneOutput::setClockEnabled(bool enabled) {
    clockStyle_.setEnabled(enabled);
}

void SceneOutput::setClockFont(const QString& fontName) {
    clockStyle_.setFontName(fontName);
}

void SceneOutput::setClockTimeFormat(const QString& pattern) {
    clockStyle_.setTimeFormat(pattern);
}

void SceneOutput::setClockOpacity(double opacity) {
    clockStyle_.setOpacity(opacity);
}

void SceneOutput::setClockSize(float size) {
    clockStyle_.setSize(size);
}

} // namespace host::view
