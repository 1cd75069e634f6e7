#pragma once

#include <QString>
#include <QWidget>

namespace host::ui {

/// The About window: the program's icon, name and version, and the credits (what the program
/// took from others: its fonts and their licences). 340 pixels wide, centred on the screen.
class AboutWindow : public QWidget {
    Q_OBJECT
public:
    explicit AboutWindow(QWidget* parent = nullptr);

    /// Opens the process's About window, making it on first use, and brings it to the front.
    static void showShared();

    /// "Version " + the short version + " (" + the build + ")"; "Unknown" stands for a part
    /// the build did not give.
    static QString versionLine(const QString& shortVersion, const QString& build);

    /// The application's name, or "App" when it has none.
    static QString applicationName();
};

} // namespace host::ui
