#include "host/menu/StatusItem.h"

#include "host/view/Resources.h"

#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QtMath>

namespace host::menu {

namespace {

/// A six-armed snowflake in white with a dark outline, so that it reads on light and dark panels.
QIcon drawnSnowflake() {
    QIcon icon;
    for (int size : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPointF centre(size / 2.0, size / 2.0);
        const double arm = size * 0.42;
        for (const auto& [colour, width] : {std::pair{QColor(40, 40, 40, 200), size / 6.0},
                                            std::pair{QColor(Qt::white), size / 12.0}}) {
            painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
            for (int i = 0; i < 6; ++i) {
                const double angle = qDegreesToRadians(90.0 + 60.0 * i);
                const QPointF tip = centre + QPointF(arm * std::cos(angle), -arm * std::sin(angle));
                painter.drawLine(centre, tip);
                const QPointF mid = centre + (tip - centre) * 0.6;
                for (int side : {-1, 1}) {
                    const double branch = angle + side * qDegreesToRadians(45.0);
                    painter.drawLine(mid, mid + QPointF(arm * 0.3 * std::cos(branch), -arm * 0.3 * std::sin(branch)));
                }
            }
        }
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

StatusItem::StatusItem(QMenu& menu, const QString& accessibleName, QObject* parent)
    : QObject(parent), menu_(menu), tray_(new QSystemTrayIcon(this)), icon_(menuBarIcon()) {
    tray_->setContextMenu(&menu_);
    tray_->setToolTip(accessibleName);
    connect(tray_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        // The context menu opens by itself on the secondary button; a primary click opens it too.
        if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::MiddleClick) {
            menu_.popup(QCursor::pos());
        }
    });
    applyIcon();
    tray_->setVisible(visible_);
}

StatusItem::~StatusItem() = default;

void StatusItem::setVisible(bool visible) {
    visible_ = visible;
    tray_->setVisible(visible);
}

void StatusItem::setAppearsDisabled(bool disabled) {
    if (appearsDisabled_ == disabled) {
        return;
    }
    appearsDisabled_ = disabled;
    applyIcon();
}

void StatusItem::applyIcon() {
    if (!appearsDisabled_) {
        tray_->setIcon(icon_);
        return;
    }
    QIcon disabled;
    for (int size : {16, 22, 24, 32, 48, 64}) {
        disabled.addPixmap(icon_.pixmap(QSize(size, size), QIcon::Disabled));
    }
    tray_->setIcon(disabled);
}

QIcon StatusItem::menuBarIcon() {
    const QDir icons(view::Resources::directory() + QStringLiteral("/icons"));
    for (const QString& name : {QStringLiteral("MenuBarIcon.svg"), QStringLiteral("MenuBarIcon.png")}) {
        const QFileInfo file(icons.filePath(name));
        if (file.isFile()) {
            QIcon icon(file.absoluteFilePath());
            if (!icon.isNull()) {
                return icon;
            }
        }
    }
    return drawnSnowflake();
}

} // namespace host::menu
