#include "renderer/textures/TextureFiles.h"

#include <exception>

#include "renderer/Fatal.h"
#include "renderer/textures/Fp16Texture.h"
#include "renderer/textures/LoadError.h"
#include "renderer/textures/WebpTexture.h"

namespace renderer::textures {

std::optional<LoadedTexture> TextureFiles::tryLoad(gl::Gl& gl, const engine::Texture& texture,
                                                   const std::filesystem::path& directory,
                                                   loaders::AstcTexture::Decoding decoding) {
    switch (texture.format) {
    case engine::TextureFormat::RGBA8:
    case engine::TextureFormat::RGB8:
        return WebpTexture::load(gl, texture.fileName + ".webp", directory);
    case engine::TextureFormat::RGBA16F:
        return Fp16Texture::load(gl, texture.fileName, directory, texture.width, texture.height);
    case engine::TextureFormat::ASTC:
        if (texture.mipmaps == 0) {
            return loaders::AstcTexture::load(gl, texture.fileName, directory, decoding);
        }
        return loaders::AstcTexture::loadMipmapped(gl, texture.fileName, directory, texture.mipmaps, decoding);
    default:
        return std::nullopt;
    }
}

std::string TextureFiles::resourceName(const std::filesystem::path& directory, const std::string& file) {
    std::string folder = directory.lexically_normal().string();
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
    const std::filesystem::path textures(folder);
    return (textures.parent_path().filename() / textures.filename() / file).string();
}

std::optional<LoadedTexture> TextureFiles::load(gl::Gl& gl, const engine::Texture& texture,
                                                const std::filesystem::path& directory,
                                                loaders::AstcTexture::Decoding decoding) {
    try {
        return tryLoad(gl, texture, directory, decoding);
    } catch (const LoadError& e) {
        Fatal::stop("Cannot load texture " + resourceName(directory, e.file()) + ": " + e.reason());
    } catch (const std::exception& e) {
        Fatal::stop("Cannot load texture " + resourceName(directory, texture.fileName) + ": " + e.what());
    }
}

} // namespace renderer::textures
