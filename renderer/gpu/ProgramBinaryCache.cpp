#include "renderer/gpu/ProgramBinaryCache.h"

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <sstream>
#include <system_error>

#include <unistd.h>

#include "renderer/gl/ForwardingGl.h"

namespace renderer::gpu {

namespace {

/// First line of every file; a change of the layout changes the number.
constexpr std::string_view MAGIC = "nivalis program binary 1";
/// No program binary comes near this; a larger file is not ours.
constexpr std::uintmax_t MAX_FILE_SIZE = 64u << 20;

/// FNV-1a, 64 bits, over the pieces in order with a zero byte after each: stable from build to
/// build, unlike std::hash.
std::uint64_t hashOf(std::initializer_list<std::string_view> pieces) {
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    auto add = [&hash](unsigned char byte) {
        hash ^= byte;
        hash *= 0x100000001b3ULL;
    };
    for (std::string_view piece : pieces) {
        for (char c : piece) {
            add(static_cast<unsigned char>(c));
        }
        add(0);
    }
    return hash;
}

std::uint64_t checksumOf(const std::vector<std::byte>& data) {
    return hashOf({std::string_view(reinterpret_cast<const char*>(data.data()), data.size())});
}

std::string hex(std::uint64_t value) {
    char text[17];
    std::snprintf(text, sizeof text, "%016" PRIx64, value);
    return text;
}

/// The header's lines: magic, driver, sources, format, size, checksum.
std::string headerOf(const std::string& driver, std::uint64_t sources, const ProgramBinaryCache::Binary& binary) {
    std::ostringstream header;
    header << MAGIC << '\n'
           << driver << '\n'
           << hex(sources) << '\n'
           << binary.format << '\n'
           << binary.data.size() << '\n'
           << hex(checksumOf(binary.data)) << '\n';
    return header.str();
}

/// Writes all of `data`; false on any failure.
bool writeAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t put = ::write(fd, data, size);
        if (put <= 0) {
            return false;
        }
        data += put;
        size -= static_cast<std::size_t>(put);
    }
    return true;
}

/// Makes programs from the cache's binaries where it can, and from the sources otherwise,
/// storing the binary of each program compiled.
class CachingGl final : public gl::ForwardingGl {
public:
    CachingGl(gl::Gl& inner, ProgramBinaryCache cache) : ForwardingGl(inner), cache_(std::move(cache)) {}

    GLuint createProgram(std::string_view vertexSource, std::string_view fragmentSource, std::string& log) override {
        if (auto binary = cache_.load(vertexSource, fragmentSource)) {
            if (const GLuint program = inner_.createProgramFromBinary(binary->format, binary->data)) {
                return program;
            }
        }
        const GLuint program = inner_.createProgram(vertexSource, fragmentSource, log);
        ProgramBinaryCache::Binary binary;
        if (program != 0 && inner_.programBinary(program, binary.format, binary.data)) {
            cache_.store(vertexSource, fragmentSource, binary);
        }
        return program;
    }

private:
    ProgramBinaryCache cache_;
};

} // namespace

ProgramBinaryCache::ProgramBinaryCache(std::filesystem::path directory, std::string driver)
    : directory_(std::move(directory)), driver_(std::move(driver)) {
    // The driver's name is one line of the header.
    for (char& c : driver_) {
        if (c == '\n' || c == '\r') {
            c = ' ';
        }
    }
}

std::unique_ptr<gl::Gl> ProgramBinaryCache::wrap(gl::Gl& gl, const std::filesystem::path& directory) {
    if (directory.empty() || gl.programBinaryFormats() <= 0) {
        return nullptr;
    }
    std::string driver;
    gl.driverName(driver);
    return std::make_unique<CachingGl>(gl, ProgramBinaryCache(directory, std::move(driver)));
}

std::filesystem::path ProgramBinaryCache::fileFor(std::string_view vertexSource,
                                                  std::string_view fragmentSource) const {
    return directory_ / (hex(hashOf({driver_, vertexSource, fragmentSource})) + ".bin");
}

std::optional<ProgramBinaryCache::Binary> ProgramBinaryCache::load(std::string_view vertexSource,
                                                                   std::string_view fragmentSource) const {
    const std::filesystem::path file = fileFor(vertexSource, fragmentSource);
    std::error_code error;
    const std::uintmax_t fileSize = std::filesystem::file_size(file, error);
    if (error || fileSize > MAX_FILE_SIZE) {
        return std::nullopt;
    }
    std::ifstream in(file, std::ios::binary);
    std::string magic, driver, sources, checksum;
    GLenum format = 0;
    std::size_t size = 0;
    if (!std::getline(in, magic) || magic != MAGIC || !std::getline(in, driver) || driver != driver_ ||
        !std::getline(in, sources) || sources != hex(hashOf({vertexSource, fragmentSource})) || !(in >> format) ||
        !(in >> size) || !(in >> checksum) || in.get() != '\n' || size > fileSize) {
        return std::nullopt;
    }
    Binary binary;
    binary.format = format;
    binary.data.resize(size);
    if (!in.read(reinterpret_cast<char*>(binary.data.data()), static_cast<std::streamsize>(size)) ||
        in.peek() != std::ifstream::traits_type::eof() || hex(checksumOf(binary.data)) != checksum) {
        return std::nullopt;
    }
    return binary;
}

bool ProgramBinaryCache::store(std::string_view vertexSource, std::string_view fragmentSource,
                               const Binary& binary) const {
    std::error_code error;
    std::filesystem::create_directories(directory_, error);
    const std::filesystem::path file = fileFor(vertexSource, fragmentSource);
    std::string temporary = file.string() + ".XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) {
        return false;
    }
    const std::string header = headerOf(driver_, hashOf({vertexSource, fragmentSource}), binary);
    // No fsync: a file the system lost half of after a crash fails its checksum and is
    // rebuilt, which is cheaper than waiting for the disk at every start with a cold cache.
    const bool written = writeAll(fd, header.data(), header.size()) &&
                         writeAll(fd, reinterpret_cast<const char*>(binary.data.data()), binary.data.size());
    ::close(fd);
    if (!written || ::rename(temporary.c_str(), file.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    return true;
}

} // namespace renderer::gpu
