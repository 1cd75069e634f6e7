#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "renderer/gl/Gl.h"

namespace renderer::gpu {

/// Linked programs kept on disk as the driver's own binaries, so that a later start loads each
/// program instead of compiling and linking its sources again.
///
/// One file per program, named by a hash of the driver and the two sources. The file starts
/// with a text header that repeats the driver's name, the hash of the sources, the binary's
/// format, size and checksum; a file written by another driver or version, for other sources
/// (a collision of names), cut short or damaged therefore reads as stale, and the program is
/// compiled from its sources and the file written anew. Files are replaced by a rename, so a
/// reader never sees half a file. Nothing here ever fails loudly: a cache that cannot be read
/// or written only costs the time of compiling.
class ProgramBinaryCache {
public:
    /// A program's binary as the driver gave it.
    struct Binary {
        GLenum format = 0;
        std::vector<std::byte> data;
    };

    /// The cache in `directory` (made on the first store) for the driver named `driver`.
    ProgramBinaryCache(std::filesystem::path directory, std::string driver);

    /// A `Gl` that forwards to `gl` and makes programs through a cache in `directory` for the
    /// driver of `gl`; null where `directory` is empty or the driver hands out no binaries, and
    /// `gl` is to be used as it is.
    static std::unique_ptr<gl::Gl> wrap(gl::Gl& gl, const std::filesystem::path& directory);

    /// The binary stored for the two sources; nothing where there is none or it is stale.
    std::optional<Binary> load(std::string_view vertexSource, std::string_view fragmentSource) const;
    /// Stores `binary` for the two sources in place of what was there; false where the
    /// directory or the file cannot be written.
    bool store(std::string_view vertexSource, std::string_view fragmentSource, const Binary& binary) const;
    /// The file that holds the binary of the two sources.
    std::filesystem::path fileFor(std::string_view vertexSource, std::string_view fragmentSource) const;

private:
    std::filesystem::path directory_;
    std::string driver_;
};

} // namespace renderer::gpu
