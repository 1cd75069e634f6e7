#include "tools/assetgen/catalogue/TextureWriter.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "tools/assetgen/io/WebpFile.h"

namespace tools::assetgen::catalogue {

using engine::TextureFormat;

void TextureWriter::write(io::OutputTree& out, const std::string& resourcesRoot, const engine::Texture& texture,
                          const TextureContent& content) {
    const std::string& name = texture.fileName;
    switch (texture.format) {
    case TextureFormat::RGBA8:
    case TextureFormat::RGB8:
        if (!content.image) {
            throw std::invalid_argument("Texture " + name + " needs an image");
        }
        out.write(out.texturePath(resourcesRoot, name + ".webp"), io::WebpFile::encode(*content.image));
        return;
    case TextureFormat::RGBA16F: {
        const std::size_t expected = static_cast<std::size_t>(texture.width) * texture.height * 8;
        if (content.raw.size() != expected) {
            throw std::invalid_argument("Texture " + name + " holds " + std::to_string(content.raw.size()) +
                                        " bytes where " + std::to_string(texture.width) + " x " +
                                        std::to_string(texture.height) + " texels need " + std::to_string(expected));
        }
        out.write(out.texturePath(resourcesRoot, name), content.raw);
        return;
    }
    case TextureFormat::ASTC: {
        if (!content.image) {
            throw std::invalid_argument("Texture " + name + " needs an image");
        }
        if (texture.mipmaps == 0) {
            if (content.image->width() % content.blockWidth != 0) {
                throw std::invalid_argument("Texture " + name + " is " + std::to_string(content.image->width()) +
                                            " wide, no multiple of its block width " +
                                            std::to_string(content.blockWidth));
            }
            out.write(out.texturePath(resourcesRoot, name + ".astc"),
                      io::AstcFile::encode(*content.image, content.blockWidth, content.blockHeight, content.effort));
            return;
        }
        core::Image level = *content.image;
        const int levels = texture.mipmaps + 1;
        for (int i = 0; i < levels; ++i) {
            if (i > 0) {
                const int w = std::max(1, level.width() / 2);
                const int h = std::max(1, level.height() / 2);
                level = content.nextLevel ? content.nextLevel(level, i) : level.halved();
                if (level.width() != w || level.height() != h) {
                    throw std::invalid_argument("Level " + std::to_string(i) + " of " + name + " does not halve");
                }
                if (i < levels - 1 && w == 1 && h == 1) {
                    throw std::invalid_argument("Texture " + name + " reaches 1 x 1 before its last level");
                }
            }
            out.write(out.texturePath(resourcesRoot, name + "_" + std::to_string(i) + ".astc"),
                      io::AstcFile::encode(level, content.blockWidth, content.blockHeight, content.effort));
        }
        return;
    }
    default:
        throw std::invalid_argument("No file format for texture " + name);
    }
}

} // namespace tools::assetgen::catalogue
