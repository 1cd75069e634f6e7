#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

class QMenu;
class QSystemTrayIcon;

namespace host::menu {

/// The program's icon in the system tray with its menu: the one permanent surface of the
/// program.
///
/// Clicking the icon (either button) opens the menu. While the wallpaper is off the icon is
/// drawn in its disabled look.
class StatusItem : public QObject {
    Q_OBJECT
public:
    /// An icon showing `menu`, visible, with `accessibleName` as its tool tip.
    StatusItem(QMenu& menu, const QString& accessibleName, QObject* parent = nullptr);
    ~StatusItem() override;

    /// Whether the icon is in the tray.
    bool isVisible() const { return visible_; }
    /// Puts the icon in the tray or takes it out.
    void setVisible(bool visible);

    /// Whether the icon has its disabled look.
    bool appearsDisabled() const { return appearsDisabled_; }
    /// Switches between the normal and the disabled look.
    void setAppearsDisabled(bool disabled);

    /// The icon in its normal look: "MenuBarIcon" from the resources' icons folder, or a
    /// drawn snowflake when the resources have none.
    static QIcon menuBarIcon();

private:
    void applyIcon();

    QMenu& menu_;
    QSystemTrayIcon* tray_;
    QIcon icon_;
    bool visible_ = true;
    bool appearsDisabled_ = false;
};

} // namespace host::menu
