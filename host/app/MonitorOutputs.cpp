#include "host/app/MonitorOutputs.h"

#include <QTimer>

#include <algorithm>

namespace host::app {

MonitorOutputs::MonitorOutputs(MakeOutput make, ListMonitors monitors, std::unique_ptr<CoverWatcher> covers,
                               QObject* parent)
    : WallpaperOutput(parent), make_(std::move(make)), monitors_(std::move(monitors)), covers_(std::move(covers)) {
    if (covers_ != nullptr) {
        connect(covers_.get(), &CoverWatcher::coveredChanged, this, &MonitorOutputs::applyPause);
    }
    addSlot(std::nullopt);
}

MonitorOutputs::~MonitorOutputs() = default;

std::vector<std::optional<QUuid>> MonitorOutputs::wantedMonitors() const {
    if (!allDisplays_) {
        return {target_};
    }
    std::vector<std::optional<QUuid>> wanted;
    for (const std::optional<QUuid>& monitor : monitors_()) {
        // A monitor without identity cannot be told from another: it gets a surface only alone.
        if (monitor && std::find(wanted.begin(), wanted.end(), monitor) == wanted.end()) {
            wanted.push_back(monitor);
        }
    }
    if (wanted.empty()) {
        wanted.push_back(std::nullopt);
    }
    return wanted;
}

std::optional<QUuid> MonitorOutputs::shownMonitor(const Slot& slot) const {
    const std::vector<std::optional<QUuid>> connected = monitors_();
    if (slot.monitor && std::find(connected.begin(), connected.end(), slot.monitor) != connected.end()) {
        return slot.monitor;
    }
    return connected.empty() ? std::nullopt : connected.front();
}

bool MonitorOutputs::isCovered(const Slot& slot) const {
    if (!pauseWhenCovered_ || covers_ == nullptr) {
        return false;
    }
    const std::optional<QUuid> monitor = shownMonitor(slot);
    return monitor && covers_->isCovered(*monitor);
}

void MonitorOutputs::addSlot(std::optional<QUuid> monitor) {
    Slot slot{monitor, make_(nextCameraPath_++)};
    WallpaperOutput& out = *slot.output;
    connect(&out, &WallpaperOutput::appeared, this, &WallpaperOutput::appeared);
    out.setPreferredFramesPerSecond(fps_);
    out.setQuality(quality_);
    out.setTargetDisplay(monitor);
    if (scene_) {
        out.setScene(*scene_);
    }
    if (sceneSettings_) {
        out.setSceneSettings(sceneSettings_->first, sceneSettings_->second);
    }
    if (clockFont_) {
        out.setClockFont(*clockFont_);
    }
    if (clockFormat_) {
        out.setClockTimeFormat(*clockFormat_);
    }
    if (clockOpacity_) {
        out.setClockOpacity(*clockOpacity_);
    }
    if (clockSize_) {
        out.setClockSize(*clockSize_);
    }
    slots_.push_back(std::move(slot));
    if (created_) {
        out.createWindow();
        if (allSpaces_) {
            out.setShowOnAllSpaces(*allSpaces_);
        }
        if (shown_) {
            out.showWindow();
        }
    }
    applyPause();
    applyClock();
}

void MonitorOutputs::removeSlot(std::size_t index) {
    framesOfRemoved_ += slots_[index].output->frameCount();
    slots_.erase(slots_.begin() + static_cast<std::ptrdiff_t>(index));
}

void MonitorOutputs::reconcile() {
    const std::vector<std::optional<QUuid>> wanted = wantedMonitors();
    for (std::size_t i = slots_.size(); i-- > 0;) {
        if (std::find(wanted.begin(), wanted.end(), slots_[i].monitor) == wanted.end()) {
            removeSlot(i);
        }
    }
    for (const std::optional<QUuid>& monitor : wanted) {
        const bool present = std::any_of(slots_.begin(), slots_.end(),
                                         [&monitor](const Slot& slot) { return slot.monitor == monitor; });
        if (!present) {
            addSlot(monitor);
        }
    }
    // The monitors may now be in another order: the primary's output is the one first listed.
    std::stable_sort(slots_.begin(), slots_.end(), [&wanted](const Slot& a, const Slot& b) {
        return std::find(wanted.begin(), wanted.end(), a.monitor) < std::find(wanted.begin(), wanted.end(), b.monitor);
    });
    applyPause();
    applyClock();
}

void MonitorOutputs::setAllDisplays(bool all) {
    if (all == allDisplays_) {
        return;
    }
    allDisplays_ = all;
    if (!all && !slots_.empty()) {
        // Back to one monitor: the output of the target stays, or the first one takes its place.
        slots_.front().monitor = target_;
        slots_.front().output->setTargetDisplay(target_);
        slots_.front().output->updateFrame();
    }
    reconcile();
}

void MonitorOutputs::setPauseWhenCovered(bool pause) {
    pauseWhenCovered_ = pause;
    applyPause();
}

void MonitorOutputs::monitorsChanged() {
    // Screens are announced while the window system is still changing them: the outputs follow
    // once the event loop has had a turn.
    QTimer::singleShot(0, this, [this] {
        if (allDisplays_) {
            reconcile();
        } else {
            applyPause();
        }
    });
}

void MonitorOutputs::applyPause() {
    for (const Slot& slot : slots_) {
        slot.output->setPaused(paused_ || isCovered(slot));
    }
}

void MonitorOutputs::applyClock() {
    for (std::size_t i = 0; i < slots_.size(); ++i) {
        slots_[i].output->setClockEnabled(clockEnabled_ && i == 0);
    }
}

void MonitorOutputs::createWindow() {
    created_ = true;
    for (const Slot& slot : slots_) {
        slot.output->createWindow();
    }
}

void MonitorOutputs::showWindow() {
    shown_ = true;
    for (const Slot& slot : slots_) {
        slot.output->showWindow();
    }
}

void MonitorOutputs::orderOut() {
    shown_ = false;
    for (const Slot& slot : slots_) {
        slot.output->orderOut();
    }
}

void MonitorOutputs::setPaused(bool paused) {
    paused_ = paused;
    applyPause();
}

void MonitorOutputs::setPreferredFramesPerSecond(int fps) {
    fps_ = fps;
    for (const Slot& slot : slots_) {
        slot.output->setPreferredFramesPerSecond(fps);
    }
}

void MonitorOutputs::setQuality(renderer::RenderQuality quality) {
    quality_ = quality;
    for (const Slot& slot : slots_) {
        slot.output->setQuality(quality);
    }
}

void MonitorOutputs::setTargetDisplay(std::optional<QUuid> display) {
    target_ = display;
    if (!allDisplays_ && !slots_.empty()) {
        slots_.front().monitor = display;
        slots_.front().output->setTargetDisplay(display);
    }
}

void MonitorOutputs::updateFrame() {
    for (const Slot& slot : slots_) {
        slot.output->updateFrame();
    }
    applyPause();
}

void MonitorOutputs::updateLevel() {
    for (const Slot& slot : slots_) {
        slot.output->updateLevel();
    }
}

void MonitorOutputs::setShowOnAllSpaces(bool all) {
    allSpaces_ = all;
    for (const Slot& slot : slots_) {
        slot.output->setShowOnAllSpaces(all);
    }
}

void MonitorOutputs::rebuildContent() {
    for (const Slot& slot : slots_) {
        slot.output->rebuildContent();
    }
}

void MonitorOutputs::setScene(const QString& name) {
    scene_ = name;
    for (const Slot& slot : slots_) {
        slot.output->setScene(name);
    }
}

void MonitorOutputs::setSceneSettings(bool vignette, float cameraPeriod) {
    sceneSettings_ = {vignette, cameraPeriod};
    for (const Slot& slot : slots_) {
        slot.output->setSceneSettings(vignette, cameraPeriod);
    }
}

bool MonitorOutputs::hasRenderer() const {
    return std::any_of(slots_.begin(), slots_.end(), [](const Slot& slot) { return slot.output->hasRenderer(); });
}

void MonitorOutputs::setTimeOfDay(engine::utils::TimeOfDay timeOfDay) {
    for (const Slot& slot : slots_) {
        slot.output->setTimeOfDay(timeOfDay);
    }
}

void MonitorOutputs::setClockEnabled(bool enabled) {
    clockEnabled_ = enabled;
    applyClock();
}

void MonitorOutputs::setClockFont(const QString& fontName) {
    clockFont_ = fontName;
    for (const Slot& slot : slots_) {
        slot.output->setClockFont(fontName);
    }
}

void MonitorOutputs::setClockTimeFormat(const QString& pattern) {
    clockFormat_ = pattern;
    for (const Slot& slot : slots_) {
        slot.output->setClockTimeFormat(pattern);
    }
}

void MonitorOutputs::setClockOpacity(double opacity) {
    clockOpacity_ = opacity;
    for (const Slot& slot : slots_) {
        slot.output->setClockOpacity(opacity);
    }
}

void MonitorOutputs::setClockSize(float size) {
    clockSize_ = size;
    for (const Slot& slot : slots_) {
        slot.output->setClockSize(size);
    }
}

std::uint64_t MonitorOutputs::frameCount() const {
    std::uint64_t total = framesOfRemoved_;
    for (const Slot& slot : slots_) {
        total += slot.output->frameCount();
    }
    return total;
}

QString MonitorOutputs::shownMonitorText(const Slot& slot) const {
    const std::optional<QUuid> monitor = shownMonitor(slot);
    return monitor ? monitor->toString(QUuid::WithoutBraces).toUpper() : QStringLiteral("none");
}

QStringList MonitorOutputs::monitorReport() const {
    QStringList lines;
    for (const Slot& slot : slots_) {
        const QString state = isCovered(slot) ? QStringLiteral("covered")
                              : paused_       ? QStringLiteral("paused")
                                              : QStringLiteral("drawing");
        lines << QStringLiteral("%1 %2 %3")
                     .arg(shownMonitorText(slot), state)
                     .arg(slot.output->frameCount());
    }
    return lines;
}

QStringList MonitorOutputs::pixelSizeReport() const {
    QStringList lines;
    for (const Slot& slot : slots_) {
        const QSize size = slot.output->drawnPixelSize();
        lines << QStringLiteral("%1 %2x%3").arg(shownMonitorText(slot)).arg(size.width()).arg(size.height());
    }
    return lines;
}

} // namespace host::app
