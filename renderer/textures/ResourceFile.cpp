#include "renderer/textures/ResourceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "renderer/textures/LoadError.h"

namespace renderer::textures {

namespace {

/// Closes a file descriptor when it goes out of scope.
struct FileDescriptor {
    int fd;
    ~FileDescriptor() {
        if (fd >= 0) {
            ::close(fd);
        }
    }
};

std::string kindOf(mode_t mode) {
    if (S_ISDIR(mode)) {
        return "a directory";
    }
    if (S_ISFIFO(mode)) {
        return "a FIFO";
    }
    if (S_ISCHR(mode) || S_ISBLK(mode)) {
        return "a device";
    }
    if (S_ISSOCK(mode)) {
        return "a socket";
    }
    return "no regular file";
}

} // namespace

std::vector<std::byte> ResourceFile::read(const std::filesystem::path& directory, const std::string& name,
                                          const std::string& type) {
    // Joined as text: a name with a leading "/" stays inside the directory, as a bundle lookup would.
    const std::string path = directory.string() + "/" + name + type;
    const std::string file = name + type;
    const std::string notFound = "File not found in bundle: " + name;
    const std::string unreadable = "Cannot read resource " + name;
    // Non-blocking, so that a FIFO in the file's place is refused rather than waited on.
    const FileDescriptor in{::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)};
    if (in.fd < 0) {
        const int error = errno;
        if (error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG) {
            throw LoadError(file, "file not found", notFound);
        }
        throw LoadError(file, std::string("cannot be opened: ") + std::strerror(error), unreadable);
    }
    struct stat status {};
    if (::fstat(in.fd, &status) != 0) {
        throw LoadError(file, std::string("cannot be read: ") + std::strerror(errno), unreadable);
    }
    if (!S_ISREG(status.st_mode)) {
        throw LoadError(file, "is " + kindOf(status.st_mode) + ", not a file", notFound);
    }
    std::vector<std::byte> bytes(static_cast<std::size_t>(status.st_size));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t got = ::read(in.fd, bytes.data() + done, bytes.size() - done);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            throw LoadError(file, std::string("cannot be read: ") + std::strerror(errno), unreadable);
        }
        if (got == 0) {
            throw LoadError(file, "shrank while being read", unreadable);
        }
        done += static_cast<std::size_t>(got);
    }
    return bytes;
}

} // namespace renderer::textures
