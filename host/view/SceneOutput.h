#pragma once

#include "host/app/WallpaperOutput.h"
#include "host/clock/ClockStyleManager.h"
#include "host/view/SceneContent.h"

#include <QString>

#include <memory>

namespace host::settings {
class Settings;
}

namespace host::view {

class SceneContent;

/// The half of a wallpaper output that does not depend on the window system: the scene, the
/// clock's style, and the renderer's time of day. The X11 desktop window and the Wayland layer
/// surface both build on it and add only where the frames go.
class SceneOutput : public app::WallpaperOutput {
    Q_OBJECT
public:
    /// An output showing `content`.
    explicit SceneOutput(std::unique_ptr<SceneContent> content);
    ~SceneOutput() override;

    /// The scene of the key `scene` from the program's resources (loading the clock's fonts
    /// from there too), flying its camera path number `cameraPath` (each monitor starts on
    /// another), Nivalis' time of day read from `settings`.
    static std::unique_ptr<SceneContent> chosenContent(settings::Settings& settings, int cameraPath = 0);

    /// Makes `name` the scene shown; when that changes the scene, the content is rebuilt so
    /// that a new renderer of it replaces the old one and its GL objects.
    void setScene(const QString& name) override;
    void setSceneSettings(bool vignette, float cameraPeriod) override;
    bool hasRenderer() const override;
    void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) override;
    void setClockEnabled(bool enabled) override;
    void setClockFont(const QString& fontName) override;
    void setClockTimeFormat(const QString& pattern) override;
    void setClockOpacity(double opacity) override;
    void setClockSize(float size) override;

    /// The clock's style.
    clock::ClockStyleManager& clockStyle() { return clockStyle_; }

protected:
    /// The scene shown.
    SceneContent& content() { return *content_; }
    /// This output's renderer; null before its view appeared.
    virtual FrameRenderer* ownRenderer() const = 0;

private:
    std::unique_ptr<SceneContent> content_;
    clock::ClockStyleManager clockStyle_;
};

} // namespace host::view
