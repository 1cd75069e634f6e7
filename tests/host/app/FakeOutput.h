#pragma once

#include "host/app/WallpaperOutput.h"

#include <QString>
#include <QStringList>

namespace host::testing {

/// A WallpaperOutput that records each call as a short line ("setPaused(true)"), so that tests
/// can check what AppState drove and in which order.
class FakeOutput : public app::WallpaperOutput {
public:
    QStringList calls;
    bool renderer = false;
    std::uint64_t frames = 0;

    /// The recorded calls whose line starts with `prefix`.
    QStringList callsStartingWith(const QString& prefix) const {
        QStringList found;
        for (const QString& call : calls) {
            if (call.startsWith(prefix)) {
                found << call;
            }
        }
        return found;
    }

    /// Simulates the view appearing: a renderer now exists.
    void appear() {
        renderer = true;
        emit appeared();
    }

    void createWindow() override { calls << QStringLiteral("createWindow"); }
    void showWindow() override { calls << QStringLiteral("showWindow"); }
    void orderOut() override { calls << QStringLiteral("orderOut"); }
    void setPaused(bool paused) override { calls << QStringLiteral("setPaused(%1)").arg(flag(paused)); }
    void setPreferredFramesPerSecond(int fps) override { calls << QStringLiteral("setFps(%1)").arg(fps); }
    void setQuality(renderer::RenderQuality) override {}
    void setTargetDisplay(std::optional<QUuid> display) override {
        calls << QStringLiteral("setTargetDisplay(%1)")
                     .arg(display ? display->toString(QUuid::WithoutBraces) : QStringLiteral("absent"));
    }
    void updateFrame() override { calls << QStringLiteral("updateFrame"); }
    void updateLevel() override { calls << QStringLiteral("updateLevel"); }
    void setShowOnAllSpaces(bool all) override { calls << QStringLiteral("setShowOnAllSpaces(%1)").arg(flag(all)); }
    void rebuildContent() override { calls << QStringLiteral("rebuildContent"); }
    void setScene(const QString& name) override { calls << QStringLiteral("setScene(%1)").arg(name); }
    void setSceneSettings(bool vignette, float cameraPeriod) override {
        calls << QStringLiteral("setSceneSettings(%1,%2)").arg(flag(vignette)).arg(double(cameraPeriod));
    }
    bool hasRenderer() const override { return renderer; }
    void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) override {
        calls << QStringLiteral("setTimeOfDay(%1)").arg(QString::fromUtf8(engine::utils::toString(timeOfDay).data()));
    }
    void setClockEnabled(bool enabled) override { calls << QStringLiteral("setClockEnabled(%1)").arg(flag(enabled)); }
    void setClockFont(const QString& fontName) override { calls << QStringLiteral("setClockFont(%1)").arg(fontName); }
    void setClockTimeFormat(const QString& pattern) override {
        calls << QStringLiteral("setClockTimeFormat(%1)").arg(pattern);
    }
    void setClockOpacity(double opacity) override { calls << QStringLiteral("setClockOpacity(%1)").arg(opacity); }
    void setClockSize(float size) override { calls << QStringLiteral("setClockSize(%1)").arg(double(size)); }
    std::uint64_t frameCount() const override { return frames; }

private:
    static QString flag(bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); }
};

} // namespace host::testing
