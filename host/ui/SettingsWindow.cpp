#include "host/ui/SettingsWindow.h"

#include "host/app/CoverWatcher.h"
#include "host/clock/ClockChoices.h"
#include "host/settings/Settings.h"
#include "host/system/LaunchAtLogin.h"
#include "host/ui/ActionRow.h"
#include "host/ui/DisplayPicker.h"
#include "host/ui/KeyBinding.h"
#include "host/ui/SettingsTab.h"
#include "host/ui/WindowKeys.h"
#include "host/window/X11DesktopSharing.h"
#include "renderer/scenes/SceneFactory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QSignalBlocker>
#include <QSlider>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <optional>
#include <cmath>

namespace host::ui {

namespace {

constexpr int kWidth = 480;

// Slider positions per unit of the continuous number keys (the speed moves in its key's steps).
constexpr double kOpacityScale = 1000.0; // continuous to the eye
constexpr double kSizeScale = 10.0;

// A grouped section of a form: a framed box with its own two-column layout.
QFormLayout* section(QVBoxLayout* page) {
    auto* frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* form = new QFormLayout(frame);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    page->addWidget(frame);
    return form;
}

QVBoxLayout* page(QWidget* widget) {
    auto* layout = new QVBoxLayout(widget);
    layout->setSpacing(10);
    return layout;
}

// A drop-down named `name` of fixed choices, each a label shown and the value stored.
QComboBox* choices(const QString& name, std::initializer_list<std::pair<const char*, const char*>> items) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    for (const auto& [label, value] : items) {
        box->addItem(QString::fromLatin1(label), QString::fromLatin1(value));
    }
    return box;
}

// A slider over the range of `key`'s rule, `scale` positions per unit.
QSlider* slider(const settings::SettingsKeyBase& key, double scale) {
    auto* s = new QSlider(Qt::Horizontal);
    s->setObjectName(key.name());
    s->setRange(static_cast<int>(std::lround(key.rule().minimum() * scale)),
                static_cast<int>(std::lround(key.rule().maximum() * scale)));
    s->setSingleStep(1);
    s->setPageStep(1);
    return s;
}

// Tabs as tall as the page shown, not as the tallest page, so that the window fits each tab.
class FittingTabs : public QTabWidget {
public:
    QSize sizeHint() const override { return fitted(QTabWidget::sizeHint(), &QWidget::sizeHint); }
    QSize minimumSizeHint() const override {
        return fitted(QTabWidget::minimumSizeHint(), &QWidget::minimumSizeHint);
    }

private:
    QSize fitted(QSize all, QSize (QWidget::*hint)() const) const {
        int tallest = 0;
        for (int i = 0; i < count(); ++i) {
            tallest = std::max(tallest, (widget(i)->*hint)().height());
        }
        const int shown = currentWidget() != nullptr ? (currentWidget()->*hint)().height() : tallest;
        return QSize(all.width(), all.height() - tallest + shown);
    }
};

} // namespace

SettingsWindow::SettingsWindow(settings::Settings& settings, system::LaunchAtLogin* launchAtLogin, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint), settings_(settings), launchAtLogin_(launchAtLogin) {
    setObjectName(QStringLiteral("settingsWindow"));
    setWindowTitle(QStringLiteral("Settings"));
    WindowKeys::install(this);
    tabs_ = new FittingTabs;
    tabs_->setObjectName(QStringLiteral("tabs"));
    tabs_->addTab(makeGeneral(), QIcon::fromTheme(iconNameOf(SettingsTab::General)), titleOf(SettingsTab::General));
    tabs_->addTab(makeScene(), QIcon::fromTheme(iconNameOf(SettingsTab::Scene)), titleOf(SettingsTab::Scene));
    tabs_->addTab(makeClock(), QIcon::fromTheme(iconNameOf(SettingsTab::Clock)), titleOf(SettingsTab::Clock));
    tabs_->setFixedWidth(kWidth);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tabs_);
    // A value that could not be saved stays in force for the session; the reason shows here
    // once, in place, until a later write succeeds.
    fileProblem_ = new QLabel;
    fileProblem_->setObjectName(QStringLiteral("settingsFileProblem"));
    fileProblem_->setWordWrap(true);
    fileProblem_->setFixedWidth(kWidth);
    fileProblem_->setContentsMargins(8, 4, 8, 8);
    layout->addWidget(fileProblem_);
    const auto showFileProblem = [this] {
        fileProblem_->setText(settings_.store().lastError());
        fileProblem_->setVisible(!fileProblem_->text().isEmpty());
    };
    connect(&settings_.store(), &settings::SettingsStore::failed, this, showFileProblem);
    connect(&settings_.store(), &settings::SettingsStore::entryChanged, this, showFileProblem);
    showFileProblem();
    // The window takes the size of its content on both axes: of the tab shown, not of the
    // tallest one.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    connect(tabs_, &QTabWidget::currentChanged, this, &SettingsWindow::fitTab);
    fitTab(tabs_->currentIndex());
}

void SettingsWindow::fitTab(int) {
    tabs_->updateGeometry();
    layout()->invalidate();
    layout()->activate();
}

SettingsWindow::~SettingsWindow() = default;

void SettingsWindow::showShared(settings::Settings& settings, system::LaunchAtLogin& launchAtLogin,
                                app::AppState* state) {
    static QPointer<SettingsWindow> window;
    if (window == nullptr) {
        window = new SettingsWindow(settings, &launchAtLogin);
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        if (state != nullptr) {
            window->layout()->addWidget(new ActionRow(*state, window));
        }
    }
    window->show();
    window->raise();
    window->activateWindow();
}

QCheckBox* SettingsWindow::toggle(QFormLayout* form, const QString& text, const QString& name) {
    auto* box = new QCheckBox(text);
    box->setObjectName(name);
    form->addRow(box);
    return box;
}

QWidget* SettingsWindow::makeGeneral() {
    auto* widget = new QWidget;
    widget->setObjectName(QStringLiteral("GeneralSettings"));
    QVBoxLayout* layout = page(widget);

    QFormLayout* login = section(layout);
    QCheckBox* launch = toggle(login, QStringLiteral("Start at login"), QStringLiteral("launchAtLogin"));
    if (launchAtLogin_ != nullptr) {
        launch->setChecked(launchAtLogin_->isEnabled());
        connect(launch, &QCheckBox::toggled, launchAtLogin_, [this, launch](bool on) {
            launchAtLogin_->setEnabled(on);
            // A failed change leaves the switch showing what the system reports.
            const QSignalBlocker block(launch);
            launch->setChecked(launchAtLogin_->isEnabled());
        });
        connect(launchAtLogin_, &system::LaunchAtLogin::enabledChanged, launch, [launch](bool on) {
            const QSignalBlocker block(launch);
            launch->setChecked(on);
        });
    } else {
        launch->setEnabled(false);
    }

    QFormLayout* rate = section(layout);
    auto* fps = new QComboBox;
    fps->setObjectName(QStringLiteral("fps"));
    for (const QString& value : settings_.fps.rule().choices()) {
        fps->addItem(value, value.toInt());
    }
    rate->addRow(QStringLiteral("Frames per second"), fps);
    bindings_.push_back(KeyBinding::picker(fps, settings_.fps));
    bindings_.push_back(KeyBinding::toggle(
        toggle(rate, QStringLiteral("Limit FPS on battery"), QStringLiteral("limitFpsOnBattery")),
        settings_.lowPowerMode));
    bindings_.push_back(KeyBinding::toggle(
        toggle(rate, QStringLiteral("Minimal FPS in power saver mode"), QStringLiteral("minimalFpsInLowPowerMode")),
        settings_.lowPowerMode));

    QFormLayout* place = section(layout);
    place->addRow(QStringLiteral("Show on"), new DisplayPicker(settings_));
    bindings_.push_back(KeyBinding::toggle(
        toggle(place, QStringLiteral("Show on all workspaces"), QStringLiteral("showOnAllSpaces")),
        settings_.showOnAllSpaces));
    QCheckBox* covered = toggle(place, QStringLiteral("Pause behind fullscreen and maximized windows"),
                                QStringLiteral("pauseWhenCovered"));
    bindings_.push_back(KeyBinding::toggle(covered, settings_.pauseWhenCovered));
    if (!app::CoverWatcher::isOffered()) {
        auto* note = new QLabel(QStringLiteral("This desktop does not tell which windows cover the wallpaper."));
        note->setObjectName(QStringLiteral("pauseWhenCoveredUnavailable"));
        note->setWordWrap(true);
        place->addRow(note);
    }
    if (const std::optional<QString> manager = window::X11DesktopSharing::desktopManager()) {
        // The desktop manager's window lies over the wallpaper with its icons, and without a
        // compositor its own background hides the picture.
        auto* notice = new QLabel(desktopManagerNotice(*manager));
        notice->setObjectName(QStringLiteral("desktopManagerNotice"));
        notice->setWordWrap(true);
        place->addRow(notice);
    }

    QFormLayout* icon = section(layout);
    bindings_.push_back(KeyBinding::toggle(
        toggle(icon, QStringLiteral("Hide tray icon"), QStringLiteral("hideMenuBarIcon")),
        settings_.hideMenuBarIcon, [this](bool on) {
            if (on) {
                showHideIconAlert();
            }
        }));
    layout->addStretch();
    return widget;
}

QWidget* SettingsWindow::makeScene() {
    auto* widget = new QWidget;
    widget->setObjectName(QStringLiteral("SceneSettings"));
    QVBoxLayout* layout = page(widget);
    QFormLayout* form = section(layout);

    auto* scene = new QComboBox;
    scene->setObjectName(QStringLiteral("scene"));
    for (std::string_view name : renderer::scenes::SceneFactory::NAMES) {
        const QString value = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
        QString label = value;
        label[0] = label[0].toUpper();
        scene->addItem(label, value);
    }
    scene->setToolTip(QStringLiteral("The picture on the desktop; it changes at once"));
    form->addRow(QStringLiteral("Scene"), scene);
    bindings_.push_back(KeyBinding::picker(scene, settings_.scene));

    QCheckBox* vignette = toggle(form, QStringLiteral("Vignette"), QStringLiteral("sceneVignette"));
    vignette->setToolTip(QStringLiteral("Photographic vignette in the corners of scene"));
    bindings_.push_back(KeyBinding::toggle(vignette, settings_.sceneVignette));

    const double speedScale = 1.0 / settings_.sceneSpeed.rule().step();
    QSlider* speed = slider(settings_.sceneSpeed, speedScale);
    speed->setToolTip(QStringLiteral("Camera movement - larger value is slower"));
    speed->setTickPosition(QSlider::TicksBelow);
    speed->setTickInterval(1);
    form->addRow(QStringLiteral("Movement Speed"), speed);
    bindings_.push_back(KeyBinding::slider(speed, settings_.sceneSpeed, speedScale));

    QComboBox* time = choices(QStringLiteral("sceneTime"), {{"Auto", "auto"},
                                                            {"Day", "day"},
                                                            {"Night", "night"},
                                                            {"Dusk", "dusk"},
                                                            {"Dawn", "dawn"}});
    form->addRow(QStringLiteral("Time of Day"), time);
    bindings_.push_back(KeyBinding::picker(time, settings_.sceneTime));

    QComboBox* quality =
        choices(QStringLiteral("quality"), {{"Auto", "auto"}, {"High", "high"}, {"Low", "low"}});
    quality->setToolTip(QStringLiteral("Low draws fewer pixels and scales them up: for software rendering and "
                                       "weak graphics; Auto picks it on software rendering"));
    form->addRow(QStringLiteral("Quality"), quality);
    bindings_.push_back(KeyBinding::picker(quality, settings_.quality));
    layout->addStretch();
    return widget;
}

QWidget* SettingsWindow::makeClock() {
    auto* widget = new QWidget;
    widget->setObjectName(QStringLiteral("ClockSettings"));
    QVBoxLayout* layout = page(widget);
    QFormLayout* form = section(layout);

    bindings_.push_back(KeyBinding::toggle(toggle(form, QStringLiteral("Enable clock"), QStringLiteral("clockEnabled")),
                                           settings_.clockEnabled));

    auto* font = new QComboBox;
    font->setObjectName(QStringLiteral("clockFont"));
    for (const clock::ClockChoices::Font& choice : clock::ClockChoices::fonts()) {
        font->addItem(QString::fromUtf8(choice.label), QString::fromUtf8(choice.name));
    }
    form->addRow(QStringLiteral("Font"), font);
    bindings_.push_back(KeyBinding::picker(font, settings_.clockFont));

    auto* format = new QComboBox;
    format->setObjectName(QStringLiteral("clockFormat"));
    for (const clock::ClockChoices::Format& choice : clock::ClockChoices::formats()) {
        format->addItem(QString::fromUtf8(choice.label), QString::fromUtf8(choice.pattern));
    }
    form->addRow(QStringLiteral("Time format"), format);
    bindings_.push_back(KeyBinding::picker(format, settings_.clockFormat));

    QSlider* opacity = slider(settings_.clockOpacity, kOpacityScale);
    form->addRow(QStringLiteral("Opacity"), opacity);
    bindings_.push_back(KeyBinding::slider(opacity, settings_.clockOpacity, kOpacityScale));

    QSlider* size = slider(settings_.clockSize, kSizeScale);
    form->addRow(QStringLiteral("Size"), size);
    bindings_.push_back(KeyBinding::slider(size, settings_.clockSize, kSizeScale));
    layout->addStretch();
    return widget;
}

QString SettingsWindow::desktopManagerNotice(const QString& manager) {
    return QStringLiteral("%1 draws the desktop's icons on a background of its own, which covers the "
                          "wallpaper. To see the wallpaper, turn off the desktop of %1.")
        .arg(manager);
}

void SettingsWindow::showHideIconAlert() {
    if (alert_ != nullptr) {
        alert_->raise();
        return;
    }
    alert_ = new QMessageBox(QMessageBox::NoIcon, windowTitle(), QString::fromUtf8(kHideIconAlert), QMessageBox::Ok,
                             this);
    alert_->setObjectName(QStringLiteral("hideIconAlert"));
    alert_->setAttribute(Qt::WA_DeleteOnClose);
    connect(alert_, &QObject::destroyed, this, [this] { alert_ = nullptr; });
    alert_->open();
}

} // namespace host::ui
