#pragma once

#include <QObject>

#include <cstdint>
#include <memory>
#include <vector>

struct wl_compositor;
struct wl_display;
struct wl_registry;
struct zwlr_layer_shell_v1;
struct zwlr_foreign_toplevel_manager_v1;
struct wp_fractional_scale_manager_v1;
struct wp_viewporter;
class QSocketNotifier;

namespace host::wayland {

class WaylandMonitor;

/// The program's own connection to the Wayland compositor, apart from whatever Qt uses: it
/// holds the globals the wallpaper needs (compositor, layer shell, monitors, and the
/// fractional scale with the viewporter where offered) and, once attached, reads its events
/// inside Qt's event loop (its file descriptor under a socket notifier, pending requests
/// flushed before the loop sleeps).
class WaylandConnection : public QObject {
    Q_OBJECT
public:
    /// Connects to the compositor of `WAYLAND_DISPLAY` and reads its globals and the monitors'
    /// descriptions; null when there is no compositor to connect to. Needs no Qt application.
    static std::unique_ptr<WaylandConnection> connect();
    ~WaylandConnection() override;

    /// Whether the compositor offers the layer shell.
    bool hasLayerShell() const { return layerShell_ != nullptr; }

    /// Starts reading events inside Qt's event loop; the application must exist.
    void attachToEventLoop();

    /// The connection, the compositor and the layer shell (null when not offered).
    wl_display* display() const { return display_; }
    wl_compositor* compositor() const { return compositor_; }
    zwlr_layer_shell_v1* layerShell() const { return layerShell_; }

    /// Whether the compositor tells surfaces a fractional scale and can show a buffer at another
    /// size (both the fractional-scale manager and the viewporter offered).
    bool hasFractionalScale() const { return fractionalScaleManager_ != nullptr && viewporter_ != nullptr; }
    /// The fractional-scale manager and the viewporter; null when not offered.
    wp_fractional_scale_manager_v1* fractionalScaleManager() const { return fractionalScaleManager_; }
    wp_viewporter* viewporter() const { return viewporter_; }

    /// Whether the compositor tells each surface its preferred buffer scale (wl_compositor 6).
    bool hasPreferredBufferScale() const;

    /// Whether the compositor lists the windows of all clients (foreign toplevels).
    bool hasToplevelManager() const { return toplevelManagerName_ != 0; }
    /// Binds the list of windows; the caller sets its listener before the next read of events
    /// and owns the object. Null when not offered.
    zwlr_foreign_toplevel_manager_v1* bindToplevelManager();

    /// The monitors, in the order the compositor announced them (described ones only).
    std::vector<WaylandMonitor*> monitors() const;

signals:
    /// A monitor came, went, or changed its description.
    void monitorsChanged();
    /// The compositor went away; nothing more can be shown.
    void lost();

private:
    explicit WaylandConnection(wl_display* display);
    void readEvents();
    void flush();

    static void onGlobal(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
                         std::uint32_t version);
    static void onGlobalRemove(void* data, wl_registry* registry, std::uint32_t name);

    wl_display* display_;
    wl_registry* registry_ = nullptr;
    wl_compositor* compositor_ = nullptr;
    zwlr_layer_shell_v1* layerShell_ = nullptr;
    wp_fractional_scale_manager_v1* fractionalScaleManager_ = nullptr;
    wp_viewporter* viewporter_ = nullptr;
    std::uint32_t toplevelManagerName_ = 0;
    std::uint32_t toplevelManagerVersion_ = 0;
    std::vector<std::unique_ptr<WaylandMonitor>> monitors_;
    QSocketNotifier* notifier_ = nullptr;
    bool lost_ = false;
};

} // namespace host::wayland
