#include "host/ui/AboutWindow.h"

#include "host/ui/WindowKeys.h"
#include "host/view/Resources.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

namespace host::ui {

namespace {

constexpr int kWidth = 340;
constexpr int kIconSize = 90;

// One row of the credits: a lead-in and a link, with the space below it.
void creditRow(QVBoxLayout* credits, const QString& leadIn, const QString& linkText, const QString& url,
               int bottomPadding) {
    auto* row = new QLabel;
    row->setWordWrap(true);
    row->setAlignment(Qt::AlignHCenter);
    row->setTextFormat(Qt::RichText);
    row->setOpenExternalLinks(true);
    row->setText(leadIn.toHtmlEscaped() + QStringLiteral("<br><a href=\"") + url.toHtmlEscaped() +
                 QStringLiteral("\">") + linkText.toHtmlEscaped() + QStringLiteral("</a>"));
    row->setContentsMargins(0, 0, 0, bottomPadding);
    credits->addWidget(row);
}

} // namespace

AboutWindow::AboutWindow(QWidget* parent) : QWidget(parent, Qt::Window) {
    WindowKeys::install(this);
    setObjectName(QStringLiteral("about"));
    setWindowTitle(QStringLiteral("About"));
    const QString resources = view::Resources::directory();

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(4);
    layout->setContentsMargins(16, 16, 16, 16);

    auto* icon = new QLabel;
    icon->setObjectName(QStringLiteral("aboutIcon"));
    const QPixmap pixmap(QDir(resources).filePath(QStringLiteral("icons/AboutIcon.png")));
    if (!pixmap.isNull()) {
        icon->setPixmap(pixmap.scaled(kIconSize * devicePixelRatio(), kIconSize * devicePixelRatio(),
                                      Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
    icon->setFixedSize(kIconSize, kIconSize);
    icon->setScaledContents(true);
    layout->addWidget(icon, 0, Qt::AlignHCenter);

    auto* name = new QLabel(applicationName());
    name->setObjectName(QStringLiteral("aboutName"));
    QFont headline = name->font();
    headline.setBold(true);
    headline.setPointSizeF(headline.pointSizeF() * 1.15);
    name->setFont(headline);
    layout->addWidget(name, 0, Qt::AlignHCenter);

    const QString version = QCoreApplication::applicationVersion();
    auto* versionLabel = new QLabel(versionLine(version, version));
    versionLabel->setObjectName(QStringLiteral("aboutVersion"));
    QPalette secondary = versionLabel->palette();
    secondary.setColor(QPalette::WindowText, secondary.color(QPalette::Disabled, QPalette::WindowText));
    versionLabel->setPalette(secondary);
    layout->addWidget(versionLabel, 0, Qt::AlignHCenter);

    auto* credits = new QVBoxLayout;
    credits->setSpacing(2);
    const QString fonts = QUrl::fromLocalFile(QDir(resources).filePath(QStringLiteral("fonts"))).toString();
    creditRow(credits, QStringLiteral("A live wallpaper of the polar night and day, made by the Nivalis developers."),
              QStringLiteral("The program's resources"), QUrl::fromLocalFile(resources).toString(), 12);
    creditRow(credits,
              QStringLiteral("The clock's fonts are free fonts of a character like the faces they are named "
                             "after: GFS Didot, Comfortaa, Allerta Stencil, Courier Prime, Yanone Kaffeesatz, "
                             "Bebas Neue, M+ Code Latin, Roboto Condensed, Jura and Quicksand."),
              QStringLiteral("Their authors and licences"), fonts, 5);
    creditRow(credits, QStringLiteral("The icons were drawn for this program."), QStringLiteral("Icons"),
              QUrl::fromLocalFile(QDir(resources).filePath(QStringLiteral("icons"))).toString(), 5);
    layout->addLayout(credits);

    setFixedWidth(kWidth);
    // The credits wrap: the height follows from the width once the layout has run.
    layout->activate();
    setFixedHeight(layout->hasHeightForWidth() ? layout->totalHeightForWidth(kWidth) : sizeHint().height());
}

void AboutWindow::showShared() {
    static QPointer<AboutWindow> window;
    if (window == nullptr) {
        window = new AboutWindow;
        window->adjustSize();
        if (QScreen* screen = QGuiApplication::primaryScreen()) {
            window->move(screen->availableGeometry().center() - window->rect().center());
        }
    }
    window->show();
    window->raise();
    window->activateWindow();
}

QString AboutWindow::versionLine(const QString& shortVersion, const QString& build) {
    const QString shortText = shortVersion.isEmpty() ? QStringLiteral("Unknown") : shortVersion;
    const QString buildText = build.isEmpty() ? QStringLiteral("Unknown") : build;
    return QStringLiteral("Version ") + shortText + QStringLiteral(" (") + buildText + QLatin1Char(')');
}

QString AboutWindow::applicationName() {
    const QString name = QCoreApplication::applicationName();
    return name.isEmpty() ? QStringLiteral("App") : name;
}

} // namespace host::ui
