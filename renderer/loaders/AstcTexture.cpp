#include "renderer/loaders/AstcTexture.h"

#include <cstring>
#include <stdexcept>

#include "renderer/textures/AstcDecoder.h"
#include "renderer/textures/LoadError.h"
#include "renderer/textures/ResourceFile.h"

namespace renderer::loaders {

namespace {

using textures::AstcFormat;
using textures::AstcInfo;

struct AstcFile {
    std::vector<std::byte> bytes;
    AstcInfo info;

    std::span<const std::byte> blocks() const { return std::span(bytes).subspan(AstcInfo::HEADER_SIZE); }
};

AstcFile readNamed(const std::filesystem::path& directory, const std::string& name) {
    AstcFile file;
    file.bytes = textures::ResourceFile::read(directory, name, ".astc");
    if (file.bytes.empty()) {
        throw textures::LoadError(name + ".astc", "empty file", "Empty ASTC file " + name);
    }
    file.info = AstcInfo::read(file.bytes, name + ".astc");
    return file;
}

void uploadLevel(gl::Gl& gl, GLuint texture, int level, const AstcFormat& format, int width, int height,
                 const std::vector<std::byte>& blocks, bool compressed) {
    if (compressed) {
        gl.compressedTexImage2D(texture, level, format.glFormat, width, height, blocks);
    } else {
        const auto pixels = textures::AstcDecoder::decode(blocks, format, width, height);
        gl.texImage2D(texture, level, GL_RGBA8, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    }
}

std::size_t rowBytesTruncated(const AstcInfo& info) {
    return info.blockWidth == 0 ? 0 : static_cast<std::size_t>(info.width / info.blockWidth) * 16;
}

std::size_t rowBytesRoundedUp(const AstcInfo& info) {
    return info.blockWidth == 0 ? 0
                                : static_cast<std::size_t>((info.width + info.blockWidth - 1) / info.blockWidth) * 16;
}

} // namespace

bool AstcTexture::uploadsCompressed(const gl::Gl& gl, Decoding decoding) {
    switch (decoding) {
    case Decoding::GPU:
        return true;
    case Decoding::CPU:
        return false;
    case Decoding::AUTO:
        break;
    }
    return gl.hasExtension("GL_KHR_texture_compression_astc_ldr");
}

std::vector<std::byte> AstcTexture::levelBlocks(std::span<const std::byte> blocks, const AstcFormat& format,
                                                int width, int height, std::size_t rowBytes,
                                                const std::string& name) {
    const std::size_t across = static_cast<std::size_t>(format.blocksAcross(width));
    const std::size_t down = static_cast<std::size_t>(format.blocksDown(height));
    if (across == 0 || down == 0) {
        return {};
    }
    const std::size_t fullRow = across * 16;
    const std::size_t needed = (down - 1) * rowBytes + fullRow;
    if (blocks.size() < needed) {
        throw std::runtime_error("Truncated ASTC data in " + name + ": " + std::to_string(blocks.size()) +
                                 " bytes of blocks where " + std::to_string(needed) + " are needed");
    }
    std::vector<std::byte> result(down * fullRow);
    for (std::size_t row = 0; row < down; ++row) {
        std::memcpy(result.data() + row * fullRow, blocks.data() + row * rowBytes, fullRow);
    }
    return result;
}

textures::LoadedTexture AstcTexture::load(gl::Gl& gl, const std::string& fileName,
                                          const std::filesystem::path& directory, Decoding decoding) {
    const AstcFile file = readNamed(directory, fileName);
    const AstcFormat format = AstcFormat::forBlockSize(file.info.blockWidth, file.info.blockHeight);
    const bool compressed = uploadsCompressed(gl, decoding);
    const auto blocks = levelBlocks(file.blocks(), format, file.info.width, file.info.height,
                                    rowBytesTruncated(file.info), fileName);

    textures::LoadedTexture result;
    result.texture = gl.createTexture();
    result.width = file.info.width;
    result.height = file.info.height;
    result.levels = 1;
    result.internalFormat = compressed ? format.glFormat : GL_RGBA8;
    try {
        uploadLevel(gl, result.texture, 0, format, file.info.width, file.info.height, blocks, compressed);
    } catch (...) {
        gl.deleteTexture(result.texture);
        throw;
    }
    gl.texParameteri(result.texture, GL_TEXTURE_BASE_LEVEL, 0);
    gl.texParameteri(result.texture, GL_TEXTURE_MAX_LEVEL, 0);
    return result;
}

textures::LoadedTexture AstcTexture::loadMipmapped(gl::Gl& gl, const std::string& fileName,
                                                   const std::filesystem::path& directory, int mipCount,
                                                   Decoding decoding) {
    if (mipCount < 0) {
        throw std::invalid_argument("Negative mip count " + std::to_string(mipCount) + " for " + fileName);
    }
    const bool compressed = uploadsCompressed(gl, decoding);
    textures::LoadedTexture result;
    AstcFormat format;
    try {
        for (int level = 0; level <= mipCount; ++level) {
            const std::string name = fileName + "_" + std::to_string(level);
            const AstcFile file = readNamed(directory, name);
            if (level == 0) {
                format = AstcFormat::forBlockSize(file.info.blockWidth, file.info.blockHeight);
                result.texture = gl.createTexture();
                result.width = file.info.width;
                result.height = file.info.height;
                result.levels = mipCount + 1;
                result.internalFormat = compressed ? format.glFormat : GL_RGBA8;
            } else if (file.info.blockWidth != format.blockWidth || file.info.blockHeight != format.blockHeight) {
                throw textures::LoadError(name + ".astc", "block size " + std::to_string(file.info.blockWidth) + "x" +
                                                              std::to_string(file.info.blockHeight) +
                                                              " differs from level 0's " + format.toString().substr(5));
            }
            const auto blocks = levelBlocks(file.blocks(), format, file.info.width, file.info.height,
                                            rowBytesRoundedUp(file.info), name);
            uploadLevel(gl, result.texture, level, format, file.info.width, file.info.height, blocks, compressed);
        }
    } catch (...) {
        if (result.texture != 0) {
            gl.deleteTexture(result.texture);
        }
        throw;
    }
    gl.texParameteri(result.texture, GL_TEXTURE_BASE_LEVEL, 0);
    gl.texParameteri(result.texture, GL_TEXTURE_MAX_LEVEL, mipCount);
    return result;
}

} // namespace renderer::loaders
