#include "renderer/textures/WebpTexture.h"

#include <webp/decode.h>

#include <memory>
#include <stdexcept>

#include "renderer/textures/LoadError.h"
#include "renderer/textures/ResourceFile.h"

namespace renderer::textures {

WebpTexture::Pixels WebpTexture::decode(std::span<const std::byte> file, const std::string& name) {
    Pixels pixels;
    const auto* data = reinterpret_cast<const std::uint8_t*>(file.data());
    const std::string unreadable = "Cannot read texture " + name;
    if (file.empty()) {
        throw LoadError(name, "empty file", unreadable);
    }
    if (!WebPGetInfo(data, file.size(), &pixels.width, &pixels.height)) {
        throw LoadError(name, "not a WebP image", unreadable);
    }
    if (pixels.width < 1 || pixels.height < 1 || pixels.width > MAX_SIZE || pixels.height > MAX_SIZE) {
        throw LoadError(name,
                        "size " + std::to_string(pixels.width) + "x" + std::to_string(pixels.height) +
                            " is outside 1 to " + std::to_string(MAX_SIZE) + " pixels",
                        unreadable);
    }
    // libwebp allocates the pixels itself and leaves them untouched until it decodes them, so
    // that a header claiming a large image over a few bytes of data costs no memory.
    int width = 0;
    int height = 0;
    const std::unique_ptr<std::uint8_t, void (*)(void*)> decoded(WebPDecodeRGBA(data, file.size(), &width, &height),
                                                                 &WebPFree);
    if (decoded == nullptr || width != pixels.width || height != pixels.height) {
        throw LoadError(name, "image data cut short or corrupt", unreadable);
    }
    const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    pixels.rgba.assign(decoded.get(), decoded.get() + size);
    return pixels;
}

LoadedTexture WebpTexture::load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory) {
    std::vector<std::byte> file;
    try {
        file = ResourceFile::read(directory, name);
    } catch (const LoadError& e) {
        if (std::string_view(e.what()).starts_with("File not found")) {
            throw LoadError(name, e.reason(), "Texture file not found in bundle: " + name);
        }
        throw LoadError(name, e.reason(), "Cannot read texture " + name);
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
