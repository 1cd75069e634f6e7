#include "renderer/textures/TextureFiles.h"

#include <exception>

#include "renderer/Fatal.h"
#include "renderer/textures/Fp16Texture.h"
#include "renderer/textures/WebpTexture.h"

namespace renderer::textures {

std::optional<LoadedTexture> TextureFiles::tryLoad(gl::Gl& gl, const engine::Texture& texture,
                                                   const std::filesystem::path& directory,
                                                   AstcTexture::Decoding decoding) {
    switch (texture.format) {
    case engine::TextureFormat::RGBA8:
    case engine::TextureFormat::RGB8:
        return WebpTexture::load(gl, texture.fileName + ".webp", directory);
    case engine::TextureFormat::RGBA16F:
        return Fp16Texture::load(gl, texture.fileName, directory, texture.width, texture.height);
    case engine::TextureFormat::ASTC:
        if (texture.mipmaps == 0) {
            return AstcTexture::load(gl, texture.fileName, directory, decoding);
        }
        return AstcTexture::loadMipmapped(gl, texture.fileName, directory, texture.mipmaps, decoding);
    default:
        return std::nullopt;
    }
}

std::optional<LoadedTexture> TextureFiles::load(gl::Gl& gl, const engine::Texture& texture,
                                                const std::filesystem::path& directory,
                                                AstcTexture::Decoding decoding) {
    try {
        return tryLoad(gl, texture, directory, decoding);
    } catch (const std::exception&) {
        // The loader's own words are for a debugger; the stop names the texture.
        Fatal::stop("Cannot load texture " + texture.fileName);
    }
}

} // namespace renderer::textures
