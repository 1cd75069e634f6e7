#include "renderer/textures/WebpTexture.h"

#include <webp/decode.h>

#include <stdexcept>

#include "renderer/textures/ResourceFile.h"

namespace renderer::textures {

WebpTexture::Pixels WebpTexture::decode(std::span<const std::byte> file, const std::string& name) {
    Pixels pixels;
    const auto* data = reinterpret_cast<const std::uint8_t*>(file.data());
    if (file.empty() || !WebPGetInfo(data, file.size(), &pixels.width, &pixels.height)) {
        throw std::runtime_error("Cannot read texture " + name);
    }
    pixels.rgba.resize(static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height) * 4);
    const int stride = pixels.width * 4;
    if (WebPDecodeRGBAInto(data, file.size(), pixels.rgba.data(), pixels.rgba.size(), stride) == nullptr) {
        throw std::runtime_error("Cannot read texture " + name);
    }
    return pixels;
}

LoadedTexture WebpTexture::load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory) {
    std::vector<std::byte> file;
    try {
        file = ResourceFile::read(directory, name);
    } catch (const std::runtime_error& e) {
        if (std::string_view(e.what()).starts_with("File not found")) {
            throw std::runtime_error("Texture file not found in bundle: " + name);
        }
        throw std::runtime_error("Cannot read texture " + name);
    }
    const Pixels pixels = decode(file, name);
    LoadedTexture result;
    result.texture = gl.createTexture();
    result.width = pixels.width;
    result.height = pixels.height;
    result.levels = 1;
    result.internalFormat = GL_RGBA8;
    gl.texImage2D(result.texture, 0, GL_RGBA8, pixels.width, pixels.height, GL_RGBA, GL_UNSIGNED_BYTE,
                  pixels.rgba.data());
    gl.texParameteri(result.texture, GL_TEXTURE_BASE_LEVEL, 0);
    gl.texParameteri(result.texture, GL_TEXTURE_MAX_LEVEL, 0);
    return result;
}

} // namespace renderer::textures
