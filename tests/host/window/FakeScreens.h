#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QRect>
#include <QScreen>
#include <QString>
#include <qpa/qplatformscreen.h>
#include <qpa/qwindowsysteminterface.h>

#include <vector>

namespace host::testing {

/// A monitor as the platform describes it, for tests on the offscreen platform: geometry, the
/// area panels leave free, and the EDID fields and connector name.
class FakePlatformScreen : public QPlatformScreen {
public:
    FakePlatformScreen(QString connector, QRect geometry, QRect available, QString manufacturer = QString(),
                       QString model = QString(), QString serial = QString())
        : connector_(std::move(connector)), geometry_(geometry), available_(available),
          manufacturer_(std::move(manufacturer)), model_(std::move(model)), serial_(std::move(serial)) {}

    QRect geometry() const override { return geometry_; }
    QRect availableGeometry() const override { return available_; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
    QString name() const override { return connector_; }
    QString manufacturer() const override { return manufacturer_; }
    QString model() const override { return model_; }
    QString serialNumber() const override { return serial_; }

    void setGeometry(QRect geometry, QRect available) {
        geometry_ = geometry;
        available_ = available;
        QWindowSystemInterface::handleScreenGeometryChange(screen(), geometry_, available_);
        QWindowSystemInterface::flushWindowSystemEvents();
    }

private:
    QString connector_;
    QRect geometry_;
    QRect available_;
    QString manufacturer_;
    QString model_;
    QString serial_;
};

/// Monitors plugged into the offscreen platform for the length of a test, and unplugged again
/// (the last first) when it ends. The first one added may be made the primary.
class FakeScreens {
public:
    FakeScreens() = default;
    FakeScreens(const FakeScreens&) = delete;
    FakeScreens& operator=(const FakeScreens&) = delete;
    ~FakeScreens() {
        while (!screens_.empty()) {
            unplug(screens_.back());
        }
    }

    /// Plugs a monitor in; the platform takes ownership until it is unplugged.
    FakePlatformScreen* plug(FakePlatformScreen* screen, bool primary = false) {
        QWindowSystemInterface::handleScreenAdded(screen, primary);
        screens_.push_back(screen);
        return screen;
    }

    /// Unplugs a monitor that `plug` added.
    void unplug(FakePlatformScreen* screen) {
        std::erase(screens_, screen);
        QWindowSystemInterface::handleScreenRemoved(screen);
    }

private:
    std::vector<FakePlatformScreen*> screens_;
};

} // namespace host::testing
