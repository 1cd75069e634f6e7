// The settings file as the user owns it: failures that are reported and leave it untouched,
// values that come back exactly as written, and a hand-edited file that keeps its comments,
// unknown keys and order through the program's writes.
#include "host/settings/ConfigCommand.h"
#include "host/settings/Settings.h"
#include "host/settings/SettingsFile.h"
#include "host/ui/SettingsWindow.h"
#include "tests/host/app/TestApplication.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

namespace host::settings {
namespace {

namespace fs = std::filesystem;

std::string contentsOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

void writeText(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

class SettingsFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        testing::testApplication();
        ASSERT_TRUE(dir.isValid());
        root = dir.path().toStdString();
        file = root / "config" / "nivalis" / "nivalis.conf";
    }

    /// Runs `nivalis config <words>` on the settings file at `path`.
    int config(const QStringList& words, const fs::path& path) {
        out.clear();
        err.clear();
        Settings settings(QString::fromStdString(path.string()));
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        const int status = ConfigCommand::run(words, settings, outStream, errStream);
        outStream.flush();
        errStream.flush();
        return status;
    }

    QTemporaryDir dir;
    fs::path root;
    fs::path file;
    QString out;
    QString err;
};

TEST_F(SettingsFileTest, EveryFailureIsReportedAndLeavesTheFileAsItWas) {
    struct Case {
        const char* what;
        std::function<fs::path()> prepare; // makes the trouble, gives the settings path
        std::string reason;
    };
    const std::vector<Case> cases = {
        {"read-only folder",
         [&] {
             writeText(file, "fps=20\n");
             ::chmod(file.parent_path().c_str(), 0555);
             return file;
         },
         "cannot create a file in " + file.parent_path().string() + ": Permission denied"},
        {"XDG_CONFIG_HOME is a file",
         [&] {
             writeText(root / "config", "not a folder\n");
             return file;
         },
         "cannot create the folder " + file.parent_path().string() + ": Not a directory"},
        {"nivalis.conf is a directory",
         [&] {
             fs::create_directories(file);
             return file;
         },
         "it is a directory, not a regular file"},
        {"nivalis.conf is a dangling link",
         [&] {
             fs::create_directories(file.parent_path());
             fs::create_symlink(root / "gone", file);
             return file;
         },
         "it is a dangling symbolic link"},
        {"nivalis.conf is a FIFO",
         [&] {
             fs::create_directories(file.parent_path());
             ::mkfifo(file.c_str(), 0600);
             return file;
         },
         "it is a FIFO, not a regular file"},
        {"nivalis.conf is over 1 MiB",
         [&] {
             writeText(file, std::string(SettingsFile::MAX_SIZE + 1, '#'));
             return file;
         },
         "it holds 1048577 bytes, more than the 1048576 a settings file may have"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fs::remove_all(root / "config");
        const fs::path path = c.prepare();
        if (std::string(c.what) == "read-only folder" && ::geteuid() == 0) {
            ::chmod(file.parent_path().c_str(), 0755);
            continue; // permissions do not hold root back
        }
        const auto before = fs::symlink_status(path).type();
        const std::string text = before == fs::file_type::regular ? contentsOf(path) : "";
        for (const QStringList& words : {QStringList{"set", "fps", "60"}, QStringList{"unset", "fps"}}) {
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(config(words, path), 1) << words.join(' ').toStdString();
            EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "never blocked";
            EXPECT_TRUE(err.contains(QString::fromStdString(path.string()))) << err.toStdString();
            EXPECT_TRUE(err.endsWith(QString::fromStdString(c.reason) + '\n')) << err.toStdString();
            EXPECT_EQ(fs::symlink_status(path).type(), before);
            if (before == fs::file_type::regular) {
                EXPECT_EQ(contentsOf(path), text);
            }
        }
        ::chmod(file.parent_path().c_str(), 0755);
    }
}

TEST_F(SettingsFileTest, AwkwardValuesComeBackExactly) {
    const std::vector<QString> values = {
        QStringLiteral("Comfortaa;Bold"),
        QStringLiteral("\"quoted\""),
        QStringLiteral("say \"hi\""),
        QStringLiteral("a=b=c"),
        QStringLiteral("C:\\fonts\\x41\\"),
        QStringLiteral("Ünïcødé ✓ 時計"),
        QStringLiteral("  spaces at both ends  "),
        QStringLiteral("# not a comment"),
        QStringLiteral("; nor this"),
        QStringLiteral("[not a section]"),
        QStringLiteral("line\nbreak\r\tand tab"),
        QStringLiteral("\""),
        QStringLiteral(""),
    };
    const QString path = QString::fromStdString(file.string());
    // The store is where text round-trips; the keys above it hold values to their choices.
    for (const QString& value : values) {
        ASSERT_TRUE(SettingsStore(path).setEntry(QStringLiteral("clockFont"), value));
        ASSERT_TRUE(SettingsStore(path).setEntry(QStringLiteral("future"), value));
        SettingsStore reader(path);
        EXPECT_EQ(reader.entry(QStringLiteral("clockFont")).toString(), value) << contentsOf(file);
        EXPECT_EQ(reader.entry(QStringLiteral("future")).toString(), value);
    }
}

TEST_F(SettingsFileTest, HandEditedFileKeepsEverythingButTheChangedLine) {
    const std::string edited = "# my settings\n"
                               "clockFont=Comfortaa;Bold   \n"
                               "future = kept ; as it is\n"
                               "clockFormat=\"h:mm\n"
                               "fps=20\r\n"
                               "\n"
                               "[Other]\n"
                               "fps=99\n";
    writeText(file, edited);
    const QString path = QString::fromStdString(file.string());
    {
        Settings settings(path);
        EXPECT_EQ(settings.store().entry(QStringLiteral("clockFont")).toString(), QStringLiteral("Comfortaa;Bold"));
        EXPECT_EQ(settings.store().entry(QStringLiteral("clockFormat")).toString(), QStringLiteral("\"h:mm"))
            << "an open quote stays on its line";
        EXPECT_EQ(settings.fps.read(), 20);
        EXPECT_EQ(settings.store().names(), (QStringList{"clockFont", "clockFormat", "fps", "future"}));
        settings.fps.write(60);
        settings.sceneTime.write(QStringLiteral("night"));
        settings.clockEnabled.write(true);
        settings.clockEnabled.remove();
    }
    EXPECT_EQ(contentsOf(file), "# my settings\n"
                                "clockFont=Comfortaa;Bold   \n"
                                "future = kept ; as it is\n"
                                "clockFormat=\"h:mm\n"
                                "fps=60\n"
                                "sceneTime=night\n"
                                "\n"
                                "[Other]\n"
                                "fps=99\n");
}

TEST_F(SettingsFileTest, TheProgramKeepsAnUnsavedValueForTheSessionAndShowsWhyOnce) {
    writeText(root / "config", "not a folder\n");
    Settings settings(QString::fromStdString(file.string()));
    ui::SettingsWindow window(settings, nullptr);
    auto* problem = window.findChild<QLabel*>(QStringLiteral("settingsFileProblem"));
    ASSERT_NE(problem, nullptr);
    EXPECT_TRUE(problem->isHidden());

    QSignalSpy failures(&settings.store(), &SettingsStore::failed);
    settings.fps.write(60);
    EXPECT_EQ(settings.fps.read(), 60) << "in force for the session";
    EXPECT_EQ(failures.count(), 1);
    EXPECT_FALSE(problem->isHidden());
    EXPECT_TRUE(problem->text().startsWith(QStringLiteral("Cannot save settings to ")));

    // Once the folder can be made, the next write saves what was kept as well.
    fs::remove(root / "config");
    settings.sceneTime.write(QStringLiteral("dawn"));
    EXPECT_TRUE(problem->isHidden());
    Settings reread(QString::fromStdString(file.string()));
    EXPECT_EQ(reread.fps.read(), 60);
    EXPECT_EQ(reread.sceneTime.read(), QStringLiteral("dawn"));
}

} // namespace
} // namespace host::settings
