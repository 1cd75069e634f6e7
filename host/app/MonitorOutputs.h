#pragma once

#include "host/app/CoverWatcher.h"
#include "host/app/WallpaperOutput.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace host::app {

/// The wallpaper on one monitor or on all of them, as one output for AppState.
///
/// It holds one output per monitor it shows on (an X11 desktop window or a layer surface, each
/// with its own scene and camera), hands every call of AppState on to each of them, and keeps
/// what came so far to give a monitor plugged in later the same state. Showing on one monitor
/// (the key `display`, or the primary) is the default; `setAllDisplays(true)` gives every
/// connected monitor its own.
///
/// Its one rule of its own: a monitor that its cover watcher reports as hidden behind a window
/// is paused, while pausing on cover is on, as a locked screen pauses all of them; it resumes
/// as soon as it is uncovered. The clock shows on the primary monitor only: it is one reading
/// of the time, and the primary is where a user looks for it (the panel is there).
///
/// Memory budget: each monitor after the first costs at most 82 MiB at 1920x1080 (78 to 81
/// measured with bench/monitor_cost.py on Mesa's software rasteriser). Nearly all of it is the
/// monitor's own frame state: 63 MiB the main pass's 4-sample colour and depth targets, 8 MiB
/// the window's back buffer, and a few MiB of blur chains, pipelines, the scene's own state and
/// the driver's state for one more context. Meshes, textures and programs cost nothing more:
/// the outputs' contexts share objects and the renderers of one scene one asset table.
class MonitorOutputs : public WallpaperOutput {
    Q_OBJECT
public:
    /// Makes the output of one monitor; `cameraPath` is the camera path its scene starts on.
    using MakeOutput = std::function<std::unique_ptr<WallpaperOutput>(int cameraPath)>;
    /// The connected monitors, the primary first (absent: a monitor without identity).
    using ListMonitors = std::function<std::vector<std::optional<QUuid>>()>;

    /// Outputs made by `make` over the monitors that `monitors` lists, paused where `covers`
    /// says (null: nothing is ever covered). One output is made now, for the target display.
    MonitorOutputs(MakeOutput make, ListMonitors monitors, std::unique_ptr<CoverWatcher> covers,
                   QObject* parent = nullptr);
    ~MonitorOutputs() override;

    void setAllDisplays(bool all) override;
    void setPauseWhenCovered(bool pause) override;
    /// The monitors changed: outputs of monitors that left go away, new monitors get one.
    void monitorsChanged();

    /// The outputs now, one per monitor shown on.
    std::size_t outputCount() const { return slots_.size(); }
    /// The output of the `index`th monitor shown on.
    WallpaperOutput& output(std::size_t index) const { return *slots_.at(index).output; }

    void createWindow() override;
    void showWindow() override;
    void orderOut() override;
    void setPaused(bool paused) override;
    void setPreferredFramesPerSecond(int fps) override;
    void setQuality(renderer::RenderQuality quality) override;
    void setTargetDisplay(std::optional<QUuid> display) override;
    void updateFrame() override;
    void updateLevel() override;
    void setShowOnAllSpaces(bool all) override;
    void rebuildContent() override;
    void setScene(const QString& name) override;
    void setSceneSettings(bool vignette, float cameraPeriod) override;
    bool hasRenderer() const override;
    void setTimeOfDay(engine::utils::TimeOfDay timeOfDay) override;
    void setClockEnabled(bool enabled) override;
    void setClockFont(const QString& fontName) override;
    void setClockTimeFormat(const QString& pattern) override;
    void setClockOpacity(double opacity) override;
    void setClockSize(float size) override;
    std::uint64_t frameCount() const override;
    QStringList monitorReport() const override;
    QStringList pixelSizeReport() const override;

private:
    struct Slot {
        std::optional<QUuid> monitor;
        std::unique_ptr<WallpaperOutput> output;
    };

    std::vector<std::optional<QUuid>> wantedMonitors() const;
    std::optional<QUuid> shownMonitor(const Slot& slot) const;
    bool isCovered(const Slot& slot) const;
    // The shown monitor's UUID as the diagnostics write it ("none" without one).
    QString shownMonitorText(const Slot& slot) const;
    void addSlot(std::optional<QUuid> monitor);
    void removeSlot(std::size_t index);
    void reconcile();
    void applyPause();
    void applyClock();

    MakeOutput make_;
    ListMonitors monitors_;
    std::unique_ptr<CoverWatcher> covers_;
    std::vector<Slot> slots_;
    int nextCameraPath_ = 0;
    std::uint64_t framesOfRemoved_ = 0;

    // What AppState said so far, for outputs made later.
    bool allDisplays_ = false;
    bool pauseWhenCovered_ = true;
    bool created_ = false;
    bool shown_ = false;
    bool paused_ = true;
    int fps_ = 30;
    renderer::RenderQuality quality_ = renderer::RenderQuality::AUTO;
    std::optional<QUuid> target_;
    std::optional<bool> allSpaces_;
    std::optional<QString> scene_;
    std::optional<std::pair<bool, float>> sceneSettings_;
    bool clockEnabled_ = false;
    std::optional<QString> clockFont_;
    std::optional<QString> clockFormat_;
    std::optional<double> clockOpacity_;
    std::optional<float> clockSize_;
};

} // namespace host::app
