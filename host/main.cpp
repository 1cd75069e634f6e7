// The nivalis program: the application wires itself; the desktop part supplies what it shows.
#include "host/app/Application.h"
#include "host/app/CommandLine.h"
#include "host/app/MonitorOutputs.h"
#include "host/app/PlatformChoice.h"
#include "host/settings/Settings.h"
#include "host/system/SystemEvents.h"
#include "host/ui/AboutWindow.h"
#include "host/ui/SettingsWindow.h"
#include "host/view/WallpaperView.h"
#include "host/wayland/ForeignToplevelCovers.h"
#include "host/wayland/LayerShellWallpaper.h"
#include "host/wayland/WaylandConnection.h"
#include "host/window/DesktopWallpaper.h"
#include "host/window/DisplayCatalogue.h"
#include "host/window/DisplayObservable.h"
#include "host/window/X11CoverWatcher.h"
#include "renderer/StartupTrace.h"

#include <QCoreApplication>

#include <cstdio>
#include <iostream>
#include <memory>

int main(int argc, char** argv) {
    renderer::StartupTrace::mark("main entered");
    if (auto status = host::app::CommandLine::answer(argc, argv, std::cout, std::cerr)) {
        return *status;
    }
    host::app::Application::Parts parts;
    parts.makeOutput = [](host::settings::Settings& settings, host::system::SystemEvents& events,
                          const host::app::PlatformChoice& choice) -> std::unique_ptr<host::app::WallpaperOutput> {
        using host::view::SceneOutput;
        host::app::MonitorOutputs::MakeOutput make;
        std::unique_ptr<host::app::CoverWatcher> covers;
        if (host::wayland::WaylandConnection* wayland = choice.wayland()) {
            wayland->attachToEventLoop();
            QObject::connect(wayland, &host::wayland::WaylandConnection::lost, [] {
                std::fputs("nivalis: the Wayland compositor closed the connection\n", stderr);
                QCoreApplication::exit(1);
            });
            host::wayland::LayerShellWallpaper::listMonitorsOf(*wayland);
            if (wayland->hasToplevelManager()) {
                covers = std::make_unique<host::wayland::ForeignToplevelCovers>(*wayland);
            }
            make = [&settings, wayland](int path) -> std::unique_ptr<host::app::WallpaperOutput> {
                return std::make_unique<host::wayland::LayerShellWallpaper>(
                    settings, *wayland, SceneOutput::chosenContent(settings, path));
            };
        } else {
            make = [&settings](int path) -> std::unique_ptr<host::app::WallpaperOutput> {
                return std::make_unique<host::window::DesktopWallpaper>(settings, nullptr,
                                                                        SceneOutput::chosenContent(settings, path));
            };
            covers = std::make_unique<host::window::X11CoverWatcher>();
        }
        auto monitors = [] {
            std::vector<std::optional<QUuid>> ids;
            for (const host::window::DisplayCatalogue::Entry& entry : host::window::DisplayCatalogue::entries()) {
                ids.push_back(entry.display ? std::optional<QUuid>(entry.display->id) : std::nullopt);
            }
            return ids;
        };
        auto outputs = std::make_unique<host::app::MonitorOutputs>(std::move(make), monitors, std::move(covers));
        // The monitor shown on until the key changes; its cover counts.
        outputs->setTargetDisplay(settings.display.read());
        // A wake counts as a change of the screens, once for all outputs.
        QObject::connect(&events, &host::system::SystemEvents::deviceDidWake,
                         &host::window::DisplayObservable::instance(), &host::window::DisplayObservable::notifyWake);
        QObject::connect(&host::window::DisplayObservable::instance(),
                         &host::window::DisplayObservable::screenDidChange, outputs.get(),
                         &host::app::MonitorOutputs::monitorsChanged);
        return outputs;
    };
    parts.showSettings = &host::ui::SettingsWindow::showShared;
    parts.showAbout = &host::ui::AboutWindow::showShared;
    return host::app::Application::run(argc, argv, parts);
}
