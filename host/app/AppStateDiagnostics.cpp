#include "host/app/AppStateDiagnostics.h"

#include "host/app/AppState.h"
#include "host/app/WallpaperOutput.h"
#include "host/menu/StatusItem.h"
#include "renderer/gl/CountingGl.h"

namespace host::app {

AppStateDiagnostics::AppStateDiagnostics(AppState& state, WallpaperOutput& output, QObject* parent)
    : QObject(parent), state_(state), output_(output) {}

bool AppStateDiagnostics::publish(QDBusConnection bus) {
    return bus.isConnected() &&
           bus.registerObject(QString::fromLatin1(objectPath), this,
                              QDBusConnection::ExportAllProperties | QDBusConnection::ExportScriptableSlots);
}

bool AppStateDiagnostics::enabled() const {
    return state_.isEnabled();
}

bool AppStateDiagnostics::paused() const {
    return state_.isPaused();
}

bool AppStateDiagnostics::screenLocked() const {
    return state_.isScreenLocked();
}

bool AppStateDiagnostics::manuallyDisabled() const {
    return state_.isManuallyDisabled();
}

int AppStateDiagnostics::framesPerSecond() const {
    return state_.framesPerSecond();
}

qulonglong AppStateDiagnostics::frameCount() const {
    return output_.frameCount();
}

bool AppStateDiagnostics::statusIconVisible() const {
    return state_.statusItem() != nullptr && state_.statusItem()->isVisible();
}

QStringList AppStateDiagnostics::monitors() const {
    return output_.monitorReport();
}

QStringList AppStateDiagnostics::pixelSizes() const {
    return output_.pixelSizeReport();
}

qlonglong AppStateDiagnostics::glObjects() const {
    return renderer::gl::CountingGl::liveObjects();
}

void AppStateDiagnostics::ToggleEnabled() {
    state_.toggleManuallyDisabled();
}

QString AppStateDiagnostics::scene() const {
    return state_.scene();
}

} // namespace host::app
