#pragma once

#include "host/window/Display.h"

#include <QObject>
#include <QRect>
#include <QString>

#include <cstdint>
#include <optional>

struct wl_output;

namespace host::wayland {

/// One monitor as the compositor announces it (`wl_output`): its connector name, maker, model,
/// description, size and scale. Version 4 of the interface gives name and description; older
/// compositors give maker and model only.
class WaylandMonitor : public QObject {
    Q_OBJECT
public:
    /// Follows `output`, the global numbered `globalName`; takes ownership of the proxy.
    WaylandMonitor(wl_output* output, std::uint32_t globalName, QObject* parent = nullptr);
    ~WaylandMonitor() override;

    /// The proxy, to place surfaces on this monitor.
    wl_output* output() const { return output_; }
    /// The registry's number of the global.
    std::uint32_t globalName() const { return globalName_; }
    /// Whether the first full description (`done`) has arrived.
    bool isDescribed() const { return described_; }

    /// Connector name ("DP-1"), maker, model and description; empty when not told.
    const QString& name() const { return name_; }
    const QString& make() const { return make_; }
    const QString& model() const { return model_; }
    const QString& description() const { return description_; }
    /// The current mode's size in pixels.
    QSize pixelSize() const { return pixelSize_; }
    /// The scale factor of the monitor (1 unless told).
    int scale() const { return scale_; }

    /// The persistent identity, by the same name-based scheme as on X11: maker and model with
    /// the connector standing in for the serial that the protocol does not give. Qt's own
    /// screens on Wayland report the same three fields, so both name a monitor alike.
    std::optional<window::Display> display() const;
    /// The label the "Show on" picker shows (see DisplayCatalogue::label).
    QString label() const;

signals:
    /// A full description arrived (first or changed).
    void described();
    /// The scale factor changed from the one of the previous description: surfaces on the
    /// monitor draw at the new one from now on (emitted after `described`).
    void scaleChanged(int scale);

private:
    static void onGeometry(void* data, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                           std::int32_t, const char* make, const char* model, std::int32_t);
    static void onMode(void* data, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height,
                       std::int32_t);
    static void onDone(void* data, wl_output*);
    static void onScale(void* data, wl_output*, std::int32_t factor);
    static void onName(void* data, wl_output*, const char* name);
    static void onDescription(void* data, wl_output*, const char* description);

    wl_output* output_;
    std::uint32_t globalName_;
    bool described_ = false;
    QString name_;
    QString make_;
    QString model_;
    QString description_;
    QSize pixelSize_;
    int scale_ = 1;
    // The scale as of the last `done`, to tell a change from a repeat.
    int describedScale_ = 1;
};

} // namespace host::wayland
