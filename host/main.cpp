// The nivalis program: the application wires itself; the desktop part supplies what it shows.
#include "host/app/Application.h"
#include "host/app/CommandLine.h"
#include "host/app/PlatformChoice.h"
#include "host/ui/AboutWindow.h"
#include "host/ui/SettingsWindow.h"
#include "host/view/WallpaperView.h"
#include "host/wayland/LayerShellWallpaper.h"
#include "host/wayland/WaylandConnection.h"
#include "host/window/DesktopWallpaper.h"

#include <QCoreApplication>

#include <cstdio>
#include <iostream>
#include <memory>

int main(int argc, char** argv) {
    if (auto status = host::app::CommandLine::answer(argc, argv, std::cout, std::cerr)) {
        return *status;
    }
    host::app::Application::Parts parts;
    parts.makeOutput = [](host::settings::Settings& settings, host::system::SystemEvents& events,
                          const host::app::PlatformChoice& choice) -> std::unique_ptr<host::app::WallpaperOutput> {
        if (host::wayland::WaylandConnection* wayland = choice.wayland()) {
            wayland->attachToEventLoop();
            QObject::connect(wayland, &host::wayland::WaylandConnection::lost, [] {
                std::fputs("nivalis: the Wayland compositor closed the connection\n", stderr);
                QCoreApplication::exit(1);
            });
            return std::make_unique<host::wayland::LayerShellWallpaper>(settings, *wayland);
        }
        return std::make_unique<host::window::DesktopWallpaper>(settings, events);
    };
    parts.showSettings = &host::ui::SettingsWindow::showShared;
    parts.showAbout = &host::ui::AboutWindow::showShared;
    return host::app::Application::run(argc, argv, parts);
}
