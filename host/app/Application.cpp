#include "host/app/Application.h"

#include "host/app/AppState.h"
#include "host/app/AppStateDiagnostics.h"
#include "host/app/PlatformChoice.h"
#include "host/app/WallpaperOutput.h"
#include "host/settings/ConfigCommand.h"
#include "host/settings/Settings.h"
#include "host/system/DBusSystemEvents.h"
#include "host/system/LaunchAtLogin.h"
#include "host/system/SingleInstance.h"
#include "host/system/UPowerSourceWatcher.h"
#include "host/ui/WindowKeys.h"
#include "renderer/StartupTrace.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QSystemTrayIcon>
#include <QTextStream>

#include <cstdio>
#include <cstring>
#include <iostream>

namespace host::app {

namespace {

void nameApplication() {
    QCoreApplication::setApplicationName(Application::displayName());
    QCoreApplication::setApplicationVersion(Application::version());
    QCoreApplication::setOrganizationName(QString());
}

int runConfig(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    nameApplication();
    QStringList arguments = QCoreApplication::arguments().mid(2);
    settings::Settings settings(settings::SettingsStore::defaultFilePath());
    QTextStream out(stdout);
    QTextStream err(stderr);
    return settings::ConfigCommand::run(arguments, settings, out, err);
}

} // namespace

QString Application::displayName() {
    return QStringLiteral("Nivalis");
}

QString Application::version() {
#ifdef NIVALIS_VERSION
    return QStringLiteral(NIVALIS_VERSION);
#else
    return QStringLiteral("Unknown");
#endif
}

int Application::run(int argc, char** argv, const Parts& parts) {
    if (argc > 1 && std::strcmp(argv[1], "config") == 0) {
        return runConfig(argc, argv);
    }

    const PlatformChoice choice = PlatformChoice::probe();
    std::cerr << choice.describe().toStdString() << std::endl;
    if (choice.path() == PlatformChoice::Path::None) {
        return 1;
    }

    renderer::StartupTrace::mark("platform chosen");
    QApplication app(argc, argv);
    renderer::StartupTrace::mark("Qt up");
    nameApplication();
    QGuiApplication::setApplicationDisplayName(displayName());
    QGuiApplication::setDesktopFileName(QStringLiteral("io.github.nivalis.Nivalis"));
    // The program lives in the tray: closing the settings or About window leaves it running.
    QApplication::setQuitOnLastWindowClosed(false);

    system::SingleInstance instance;
    if (instance.claim() == system::SingleInstance::Role::Secondary) {
        instance.askRunningInstanceToReveal();
        return 0;
    }

    renderer::StartupTrace::mark("single instance claimed");
    settings::Settings settings(settings::SettingsStore::defaultFilePath());
    renderer::StartupTrace::mark("settings read");
    system::LaunchAtLogin launchAtLogin(system::LaunchAtLogin::defaultEntryPath(),
                                        QCoreApplication::applicationFilePath());
    system::DBusSystemEvents events;
    std::unique_ptr<WallpaperOutput> output = parts.makeOutput(settings, events, choice);
    renderer::StartupTrace::mark("output made");
    AppState state({settings, *output, events, system::UPowerSourceWatcher::create(), std::cout});

    // A second launch reveals the tray icon; where there is no tray, where the icon could not
    // be seen, it opens the settings window, which holds the menu's actions too.
    QObject::connect(&instance, &system::SingleInstance::revealRequested, &state, [&state] {
        if (QSystemTrayIcon::isSystemTrayAvailable()) {
            state.temporarilyRevealStatusItem();
        } else {
            emit state.settingsRequested();
        }
    });
    QObject::connect(&state, &AppState::quitRequested, &app, &QCoreApplication::quit, Qt::QueuedConnection);
    if (parts.showSettings) {
        QObject::connect(&state, &AppState::settingsRequested, &state,
                         [&] { parts.showSettings(settings, launchAtLogin, &state); });
        ui::WindowKeys::setOpenSettings([&] { parts.showSettings(settings, launchAtLogin, &state); });
    }
    if (parts.showAbout) {
        QObject::connect(&state, &AppState::aboutRequested, &state, [&] { parts.showAbout(); });
    }

    AppStateDiagnostics diagnostics(state, *output);
    diagnostics.publish(QDBusConnection::sessionBus());
    renderer::StartupTrace::mark("event loop entered");

    return app.exec();
}

} // namespace host::app
