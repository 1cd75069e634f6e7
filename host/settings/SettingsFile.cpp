#include "host/settings/SettingsFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace host::settings {

namespace {

/// Closes a file descriptor when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

QString systemError(int error) { return QString::fromLocal8Bit(std::strerror(error)); }

QString kindOf(mode_t mode) {
    if (S_ISDIR(mode)) {
        return QStringLiteral("a directory");
    }
    if (S_ISFIFO(mode)) {
        return QStringLiteral("a FIFO");
    }
    if (S_ISCHR(mode) || S_ISBLK(mode)) {
        return QStringLiteral("a device");
    }
    if (S_ISSOCK(mode)) {
        return QStringLiteral("a socket");
    }
    return QStringLiteral("not a regular file");
}

/// Reads the file at `path`; returns the reason of a failure, or empty.
QString readFile(const std::string& path, std::string& text) {
    text.clear();
    const Descriptor in(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (in.get() < 0) {
        const int error = errno;
        struct stat link {};
        if ((error == ENOENT || error == ENOTDIR) && ::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode)) {
            return QStringLiteral("it is a dangling symbolic link");
        }
        // No file, or no folder on the way to it: nothing is set yet.
        return error == ENOENT || error == ENOTDIR ? QString() : systemError(error);
    }
    struct stat status {};
    if (::fstat(in.get(), &status) != 0) {
        return systemError(errno);
    }
    if (!S_ISREG(status.st_mode)) {
        return QStringLiteral("it is %1, not a regular file").arg(kindOf(status.st_mode));
    }
    if (status.st_size > SettingsFile::MAX_SIZE) {
        return QStringLiteral("it holds %1 bytes, more than the %2 a settings file may have")
            .arg(status.st_size)
            .arg(SettingsFile::MAX_SIZE);
    }
    // Read to the end, whatever the size said, but never past the limit.
    char buffer[65536];
    for (;;) {
        const ssize_t got = ::read(in.get(), buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return systemError(errno);
        }
        if (got == 0) {
            return {};
        }
        text.append(buffer, static_cast<std::size_t>(got));
        if (static_cast<long long>(text.size()) > SettingsFile::MAX_SIZE) {
            text.clear();
            return QStringLiteral("it grew past the %1 bytes a settings file may have").arg(SettingsFile::MAX_SIZE);
        }
    }
}

bool writeAll(int fd, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t put = ::write(fd, text.data() + done, text.size() - done);
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(put);
    }
    return true;
}

/// Writes `text` over `target` by rename; returns the reason of a failure, or empty.
QString replaceFile(const std::filesystem::path& target, const std::string& text) {
    std::string pattern = target.string() + ".XXXXXX";
    const Descriptor out(::mkstemp(pattern.data()));
    if (out.get() < 0) {
        return QStringLiteral("cannot create a file in %1: %2")
            .arg(QString::fromStdString(target.parent_path().string()), systemError(errno));
    }
    struct stat old {};
    const mode_t mode = ::stat(target.c_str(), &old) == 0 ? (old.st_mode & 07777) : 0644;
    QString problem;
    if (::fchmod(out.get(), mode) != 0 || !writeAll(out.get(), text) || ::fsync(out.get()) != 0) {
        problem = QStringLiteral("cannot write %1: %2").arg(QString::fromStdString(pattern), systemError(errno));
    } else if (::rename(pattern.c_str(), target.c_str()) != 0) {
        problem = QStringLiteral("cannot replace it: %1").arg(systemError(errno));
    }
    if (!problem.isEmpty()) {
        ::unlink(pattern.c_str());
        return problem;
    }
    // The rename itself is on disk once the folder is.
    const Descriptor folder(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0) {
        ::fsync(folder.get());
    }
    return {};
}

} // namespace

SettingsFile::SettingsFile(QString path) : path_(std::move(path)) {}

SettingsFile::Contents SettingsFile::read() const {
    Contents contents;
    const QString reason = readFile(path_.toStdString(), contents.text);
    if (!reason.isEmpty()) {
        contents.text.clear();
        contents.error = QStringLiteral("Cannot read settings file %1: %2").arg(path_, reason);
    }
    return contents;
}

QString SettingsFile::update(const std::function<void(SettingsDocument&)>& change, std::string& written) const {
    const auto fail = [&](const QString& reason) {
        return QStringLiteral("Cannot save settings to %1: %2").arg(path_, reason);
    };
    const std::filesystem::path path = path_.toStdString();
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    if (error) {
        return fail(
            QStringLiteral("cannot create the folder %1: %2")
                .arg(QString::fromStdString(path.parent_path().string()), QString::fromStdString(error.message())));
    }
    // A link is followed, so that a settings file kept elsewhere stays where it is.
    std::filesystem::path target = path;
    if (std::filesystem::is_symlink(path, error)) {
        target = std::filesystem::canonical(path, error);
        if (error) {
            return fail(QStringLiteral("it is a dangling symbolic link"));
        }
    }
    // Writers in other processes wait for each other on the folder's lock.
    const Descriptor folder(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() < 0 || ::flock(folder.get(), LOCK_EX) != 0) {
        return fail(QStringLiteral("cannot lock the folder %1: %2")
                        .arg(QString::fromStdString(target.parent_path().string()), systemError(errno)));
    }
    std::string current;
    const QString unreadable = readFile(target.string(), current);
    if (!unreadable.isEmpty()) {
        return fail(unreadable);
    }
    SettingsDocument document(current);
    change(document);
    const std::string text = document.text();
    if (const QString problem = replaceFile(target, text); !problem.isEmpty()) {
        return fail(problem);
    }
    std::string check;
    if (const QString problem = readFile(target.string(), check); !problem.isEmpty() || check != text) {
        return fail(QStringLiteral("the file reads back differently from what was written"));
    }
    written = text;
    return {};
}

} // namespace host::settings
