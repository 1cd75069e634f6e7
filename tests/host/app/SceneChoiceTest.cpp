// The scene choice, live: from the settings window's picker, the tray menu's submenu and
// `nivalis config`, each choice reaches the output at once, the diagnostics report it, and no
// other setting moves, over 20 swaps; an unknown stored value shows Nivalis.
#include "host/app/AppState.h"
#include "host/app/AppStateDiagnostics.h"
#include "host/settings/ConfigCommand.h"
#include "host/settings/Settings.h"
#include "host/ui/SettingsWindow.h"
#include "tests/host/app/FakeOutput.h"
#include "tests/host/app/FakeSystem.h"
#include "tests/host/app/TestApplication.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>

namespace host::app {
namespace {

class SceneChoiceTest : public ::testing::Test {
public:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath(QStringLiteral("nivalis/nivalis.conf"));
        settings = std::make_unique<settings::Settings>(path);
        settings->sceneVignette.write(false);
        settings->clockEnabled.write(true);
        settings->fps.write(60);
        state = std::make_unique<AppState>(AppState::Services{*settings, output, events, nullptr, log});
        state->finishLaunching();
    }

    /// Every other key's stored text.
    std::map<QString, QString> others() const {
        std::map<QString, QString> texts;
        for (const settings::SettingsKeyBase* key : settings->keys()) {
            if (key->name() != QStringLiteral("scene")) {
                texts[key->name()] = key->valueText();
            }
        }
        return texts;
    }

    void fromWindow(const QString& name) {
        ui::SettingsWindow window(*settings, nullptr);
        auto* picker = window.findChild<QComboBox*>(QStringLiteral("scene"));
        ASSERT_NE(picker, nullptr);
        const int index = picker->findData(name);
        ASSERT_GE(index, 0);
        emit picker->activated(index);
    }

    void fromMenu(const QString& name) {
        emit state->menu().aboutToShow();
        QMenu* scenes = nullptr;
        for (QAction* action : state->menu().actions()) {
            if (action->text() == QStringLiteral("Scene")) {
                scenes = action->menu();
            }
        }
        ASSERT_NE(scenes, nullptr);
        for (QAction* action : scenes->actions()) {
            if (action->text().toLower() == name) {
                action->trigger();
            }
        }
        emit state->menu().aboutToHide();
    }

    void fromConfig(const QString& name) {
        settings::Settings other(path);
        QString out;
        QTextStream stream(&out);
        ASSERT_EQ(settings::ConfigCommand::run({QStringLiteral("set"), QStringLiteral("scene"), name}, other, stream,
                                               stream),
                  0);
    }

    QTemporaryDir dir;
    QString path;
    std::unique_ptr<settings::Settings> settings;
    testing::FakeOutput output;
    testing::FakeSystemEvents events;
    std::ostringstream log;
    std::unique_ptr<AppState> state;
};

TEST_F(SceneChoiceTest, EveryWaySwapsThePictureLiveAndLeavesTheOtherSettings) {
    using Way = void (SceneChoiceTest::*)(const QString&);
    const std::vector<std::pair<const char*, Way>> ways = {
        {"settings window", &SceneChoiceTest::fromWindow},
        {"menu", &SceneChoiceTest::fromMenu},
        {"config", &SceneChoiceTest::fromConfig},
    };
    const QStringList names{QStringLiteral("spirelight"), QStringLiteral("betonia"), QStringLiteral("example"),
                            QStringLiteral("nivalis")};
    const auto before = others();
    AppStateDiagnostics diagnostics(*state, output);
    for (int swap = 0; swap < 20; ++swap) {
        const auto& [way, choose] = ways[static_cast<std::size_t>(swap) % ways.size()];
        const QString name = names[swap % names.size()];
        SCOPED_TRACE(std::string(way) + " -> " + name.toStdString());
        output.calls.clear();
        (this->*choose)(name);
        QTRY_COMPARE_WITH_TIMEOUT(output.calls.contains(QStringLiteral("setScene(%1)").arg(name)), true, 3000);
        EXPECT_EQ(output.callsStartingWith(QStringLiteral("setScene")).size(), 1);
        EXPECT_EQ(state->scene(), name);
        EXPECT_EQ(diagnostics.scene(), name);
        EXPECT_EQ(others(), before);
    }
}

TEST_F(SceneChoiceTest, AnUnknownSceneReadsAsNivalisAndTheMenuChecksIt) {
    settings->scene.write(QStringLiteral("spirelight"));
    output.calls.clear();
    // A hand-edited file: the value never passed the command's check.
    settings->scene.store().setEntry(QStringLiteral("scene"), QStringLiteral("harbour"));
    EXPECT_EQ(output.callsStartingWith(QStringLiteral("setScene")), QStringList{QStringLiteral("setScene(nivalis)")});
    EXPECT_EQ(state->scene(), QStringLiteral("nivalis"));
    emit state->menu().aboutToShow();
    QStringList checked;
    for (QAction* action : state->menu().actions()) {
        if (action->menu() != nullptr) {
            for (QAction* item : action->menu()->actions()) {
                if (item->isChecked()) checked << item->text();
            }
        }
    }
    EXPECT_EQ(checked, QStringList{QStringLiteral("Nivalis")});
}

} // namespace
} // namespace host::app
