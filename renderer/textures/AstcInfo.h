#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace renderer::textures {

/// The header of an `.astc` file, the standard 16-byte container: magic (4 bytes, not checked),
/// block width, height and depth (1 byte each), then image width, height and depth as 24-bit
/// little-endian numbers. The compressed blocks follow from byte 16 on, 16 bytes a block, row by
/// row.
struct AstcInfo {
    /// Size of the header in bytes; the blocks start here.
    static constexpr std::size_t HEADER_SIZE = 16;

    int width = 0;
    int height = 0;
    int blockWidth = 0;
    int blockHeight = 0;

    /// The largest width or height accepted, the common GPU texture limit.
    static constexpr int MAX_SIZE = 16384;

    /// Reads the header at the start of `file`. The magic and the depths are not looked at.
    /// Throws std::runtime_error naming `name` when `file` is shorter than the header.
    static AstcInfo parse(std::span<const std::byte> file, const std::string& name);

    /// Reads the header of the whole file `file` (named `fileName` in errors) and checks it
    /// before anything is allocated for it: the magic, a two-dimensional block size of the
    /// format, an image of 1 to MAX_SIZE pixels each way and one deep, and blocks that fill the
    /// image exactly, neither short nor with bytes past the last one. Throws LoadError with the
    /// first check that fails ("block size 0x255 is not an ASTC block size").
    static AstcInfo read(std::span<const std::byte> file, const std::string& fileName);

    bool operator==(const AstcInfo&) const = default;
    /// "AstcInfo(width=64, height=32, blockWidth=4, blockHeight=4)".
    std::string toString() const;
};

} // namespace renderer::textures
