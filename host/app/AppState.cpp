#include "host/app/AppState.h"

#include "engine/utils/TimeOfDay.h"
#include "host/app/WallpaperOutput.h"
#include "host/menu/StatusItem.h"
#include "host/settings/Settings.h"
#include "host/system/PowerSourceWatcher.h"
#include "host/system/SystemEvents.h"
#include "renderer/RenderQuality.h"
#include "renderer/StartupTrace.h"
#include "renderer/scenes/SceneFactory.h"

#include <QCoreApplication>
#include <QTimer>

#include <ostream>

namespace host::app {

using settings::ObservationOption;
using settings::Subscription;

AppState::AppState(Services services, QObject* parent)
    : QObject(parent), settings_(services.settings), output_(services.output), events_(services.events),
      log_(services.log), menu_(std::make_unique<menu::AppMenu>()),
      powerSourceWatcher_(std::move(services.powerSourceWatcher)) {
    // The view starts at the stored rate; updateFps refines it once the view has appeared.
    framesPerSecond_ = settings_.fps.read();
    output_.setPreferredFramesPerSecond(framesPerSecond_);
    // The view's renderer exists from here on: the first moment the settings reach a live scene.
    connect(&output_, &WallpaperOutput::appeared, this, [this] {
        updateFps();
        applySceneSettings();
        applyClockSettings();
    });
    QMetaObject::invokeMethod(this, &AppState::finishLaunching, Qt::QueuedConnection);
}

AppState::~AppState() {
    // Subscriptions first: none of their handlers may run on a half-destroyed state.
    cancellables_.clear();
    menu_->onUpdate = nullptr;
}

void AppState::finishLaunching() {
    if (launched_) {
        return;
    }
    launched_ = true;
    renderer::StartupTrace::mark("launch finishing");
    ensureStatusItem();
    renderer::StartupTrace::mark("tray icon made");
    output_.createWindow();
    renderer::StartupTrace::mark("window created");
    setUpEvents();
    renderer::StartupTrace::mark("settings applied");
}

menu::StatusItem& AppState::ensureStatusItem() {
    if (!statusItem_) {
        QString name = QCoreApplication::applicationName();
        if (name.isEmpty()) {
            name = QStringLiteral("App");
        }
        statusItem_ = std::make_unique<menu::StatusItem>(*menu_, name);
        statusItem_->setVisible(true);
    }
    return *statusItem_;
}

void AppState::setUpEvents() {
    auto& s = settings_;
    menu_->onUpdate = [this] { rebuildMenu(); };

    if (powerSourceWatcher_) {
        auto changed = [this] {
            logLine("powerSourceDidChange");
            updateFps();
        };
        // Once the source has answered it holds a current value and the handler also runs at
        // subscription; a source that answers later announces its first answer as a change.
        if (powerSourceWatcher_->hasAnswered()) {
            changed();
        }
        cancellables_.emplace_back(
            connect(powerSourceWatcher_.get(), &system::PowerSourceWatcher::didChange, this, changed));
    }
    cancellables_.emplace_back(connect(&events_, &system::SystemEvents::powerStateDidChange, this, [this] {
        logLine("powerStateDidChange");
        updateFps();
    }));
    cancellables_.push_back(s.batteryMode.subscribe(ObservationOption::Initial, [this](auto&) { updateFps(); }));
    cancellables_.push_back(s.lowPowerMode.subscribe(ObservationOption::Initial, [this](auto&) { updateFps(); }));
    cancellables_.push_back(
        s.sceneVignette.subscribe(ObservationOption::Initial, [this](auto&) { applySceneSettings(); }));
    cancellables_.push_back(s.sceneSpeed.subscribe(ObservationOption::Initial, [this](auto&) { applySceneSettings(); }));
    cancellables_.push_back(s.sceneTime.subscribe(ObservationOption::Initial, [this](auto&) { applySceneSettings(); }));
    cancellables_.push_back(s.quality.subscribe(ObservationOption::Initial, [this](const auto& change) {
        const auto quality = renderer::renderQualityFromString(change.newValue.toStdString());
        output_.setQuality(quality.value_or(renderer::RenderQuality::AUTO));
    }));
    // The window starts with the stored scene; later choices swap it live.
    cancellables_.push_back(s.scene.subscribe(ObservationOption::None, [this](auto&) {
        output_.setScene(scene());
        emit stateChanged();
    }));
    cancellables_.push_back(s.clockFont.subscribe(ObservationOption::Initial, [this](auto&) { applyClockSettings(); }));
    cancellables_.push_back(
        s.clockFormat.subscribe(ObservationOption::Initial, [this](auto&) { applyClockSettings(); }));
    cancellables_.push_back(
        s.clockEnabled.subscribe(ObservationOption::Initial, [this](auto&) { applyClockSettings(); }));
    cancellables_.push_back(
        s.clockOpacity.subscribe(ObservationOption::Initial, [this](auto&) { applyClockSettings(); }));
    cancellables_.push_back(s.clockSize.subscribe(ObservationOption::Initial, [this](auto&) { applyClockSettings(); }));
    cancellables_.emplace_back(
        connect(&events_, &system::SystemEvents::deviceDidWake, this, [this] { logLine("deviceDidWake"); }));
    cancellables_.emplace_back(connect(&events_, &system::SystemEvents::screenIsLocked, this,
                                       [this](bool locked) { setScreenLocked(locked); }));
    cancellables_.push_back(
        s.hideMenuBarIcon.subscribe(ObservationOption::Initial, [this](auto&) { temporarilyRevealStatusItem(); }));
    cancellables_.push_back(
        s.fps.subscribe(ObservationOption::Initial, [this](const auto& change) { updateFps(change.newValue); }));
    cancellables_.push_back(s.display.subscribe(ObservationOption::None, [this](const auto& change) {
        output_.setTargetDisplay(change.newValue);
        output_.updateFrame();
    }));
    cancellables_.push_back(s.allDisplays.subscribe(
        ObservationOption::Initial, [this](const auto& change) { output_.setAllDisplays(change.newValue); }));
    cancellables_.push_back(s.pauseWhenCovered.subscribe(
        ObservationOption::Initial, [this](const auto& change) { output_.setPauseWhenCovered(change.newValue); }));
    cancellables_.push_back(s.deactivateOnBattery.subscribe(ObservationOption::Initial, [this](auto&) {
        isEnabled_ = !isManuallyDisabled_ && !isScreenLocked_;
        applyEnabledState();
    }));
    cancellables_.push_back(s.showOnAllSpaces.subscribe(
        ObservationOption::Initial, [this](const auto& change) { output_.setShowOnAllSpaces(change.newValue); }));
    cancellables_.push_back(
        s.bringBrowsingModeToFront.subscribe(ObservationOption::None, [this](auto&) { output_.updateLevel(); }));
    cancellables_.push_back(s.muteAudio.subscribe(ObservationOption::None, [this](auto&) {
        // Rebuilding the view from inside a settings notification would pull the view tree from
        // under whoever is writing; it waits for the next turn of the event loop.
        QMetaObject::invokeMethod(this, [this] { output_.rebuildContent(); }, Qt::QueuedConnection);
    }));
}

void AppState::updateFps(std::optional<int> fps) {
    const int wanted = fps ? *fps : settings_.fps.read();
    bool limitOnBattery = false;
    if (powerSourceWatcher_ && powerSourceWatcher_->powerSource() == system::PowerSource::internalBattery) {
        limitOnBattery = settings_.batteryMode.read();
    }
    bool limitLowPower = false;
    if (events_.isLowPowerModeEnabled()) {
        limitLowPower = settings_.lowPowerMode.read();
    }
    int rate = limitOnBattery && wanted > 30 ? 30 : wanted;
    if (limitLowPower) {
        rate = 20;
    }
    log_ << "updateFps " << rate << ' ' << (limitOnBattery ? "true" : "false") << ' '
         << (limitLowPower ? "true" : "false") << std::endl;
    framesPerSecond_ = rate;
    output_.setPreferredFramesPerSecond(rate);
    emit stateChanged();
}

QString AppState::scene() const {
    return QString::fromStdString(renderer::scenes::SceneFactory::known(settings_.scene.read().toStdString()));
}

void AppState::applySceneSettings() {
    output_.setSceneSettings(settings_.sceneVignette.read(), settings_.sceneSpeed.read());
    if (output_.hasRenderer()) {
        const engine::utils::TimeOfDay timeOfDay = engine::utils::fromString(settings_.sceneTime.read().toStdString());
        log_ << engine::utils::toString(timeOfDay) << std::endl;
        output_.setTimeOfDay(timeOfDay);
    }
}

void AppState::applyClockSettings() {
    output_.setClockEnabled(settings_.clockEnabled.read());
    output_.setClockFont(settings_.clockFont.read());
    output_.setClockTimeFormat(settings_.clockFormat.read());
    output_.setClockOpacity(settings_.clockOpacity.read());
    output_.setClockSize(settings_.clockSize.read());
}

void AppState::applyEnabledState() {
    ensureStatusItem().setAppearsDisabled(!isEnabled_);
    updateFps();
    applySceneSettings();
    isPaused_ = !isEnabled_;
    if (isEnabled_) {
        output_.setPaused(false);
        output_.showWindow();
    } else {
        output_.setPaused(true);
        output_.orderOut();
    }
    emit stateChanged();
}

void AppState::temporarilyRevealStatusItem() {
    ensureStatusItem().setVisible(true);
    QTimer::singleShot(revealDuration_, this, [this] {
        if (settings_.hideMenuBarIcon.read()) {
            ensureStatusItem().setVisible(false);
        }
    });
}

std::optional<QString> AppState::toggleTitle() const {
    if (!isEnabled_ && !isManuallyDisabled_) {
        // Off by the lock alone.
        if (settings_.deactivateOnBattery.read() || !powerSourceWatcher_ || !powerSourceWatcher_->hasAnswered() ||
            powerSourceWatcher_->powerSource() == system::PowerSource::internalBattery) {
            return std::nullopt;
        }
    }
    return isManuallyDisabled_ ? tr("Enable") : tr("Disable");
}

void AppState::rebuildMenu() {
    menu_->clear();
    if (const std::optional<QString> title = toggleTitle()) {
        menu_->addCallbackItem(*title, QString(), [this] { toggleManuallyDisabled(); });
    }
    addSceneMenu();
    menu_->addSeparator();
    menu_->addCallbackItem(tr("Settings…"), QStringLiteral("Ctrl+,"), [this] {
        QMetaObject::invokeMethod(this, [this] { emit settingsRequested(); }, Qt::QueuedConnection);
    });
    menu_->addCallbackItem(tr("About"), QString(), [this] { emit aboutRequested(); });
    menu_->addCallbackItem(tr("Quit"), QStringLiteral("Ctrl+Q"), [this] { emit quitRequested(); });
}

void AppState::addSceneMenu() {
    // The menu is rebuilt at each opening; the submenu of the last one goes with it.
    for (QMenu* former : menu_->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        former->deleteLater();
    }
    QMenu* scenes = menu_->addMenu(tr("Scene"));
    const QString current = scene();
    for (std::string_view name : renderer::scenes::SceneFactory::NAMES) {
        const QString key = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
        QString title = key;
        title[0] = title[0].toUpper();
        QAction* action = scenes->addAction(title);
        action->setCheckable(true);
        action->setChecked(key == current);
        connect(action, &QAction::triggered, this, [this, key] { settings_.scene.write(key); });
    }
}

void AppState::setScreenLocked(bool locked) {
    isScreenLocked_ = locked;
    isEnabled_ = !(isManuallyDisabled_ || locked);
    applyEnabledState();
}

void AppState::toggleManuallyDisabled() {
    isManuallyDisabled_ = !isManuallyDisabled_;
    isEnabled_ = !isManuallyDisabled_ && !isScreenLocked_;
    applyEnabledState();
}

void AppState::logLine(const char* text) {
    log_ << text << std::endl;
}

} // namespace host::app
