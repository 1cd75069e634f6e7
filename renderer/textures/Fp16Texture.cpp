#include "renderer/textures/Fp16Texture.h"

#include <stdexcept>

#include "renderer/textures/ResourceFile.h"

namespace renderer::textures {

std::size_t Fp16Texture::byteSize(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 8;
}

LoadedTexture Fp16Texture::load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory,
                                int width, int height) {
    if (width < 1 || height < 1) {
        throw std::invalid_argument("Half-float texture " + name + " needs a size, not " + std::to_string(width) +
                                    "x" + std::to_string(height));
    }
    const auto file = ResourceFile::read(directory, name);
    if (file.empty()) {
        throw std::runtime_error("Empty half-float texture " + name);
    }
    if (file.size() < byteSize(width, height)) {
        throw std::runtime_error("Half-float texture " + name + " holds " + std::to_string(file.size()) +
                                 " bytes where " + std::to_string(width) + "x" + std::to_string(height) +
                                 " needs " + std::to_string(byteSize(width, height)));
    }
    LoadedTexture result;
    result.texture = gl.createTexture();
    result.width = width;
    result.height = height;
    result.levels = 1;
    result.internalFormat = GL_RGBA16F;
    gl.texImage2D(result.texture, 0, GL_RGBA16F, width, height, GL_RGBA, GL_HALF_FLOAT, file.data());
    gl.texParameteri(result.texture, GL_TEXTURE_BASE_LEVEL, 0);
    gl.texParameteri(result.texture, GL_TEXTURE_MAX_LEVEL, 0);
    return result;
}

} // namespace renderer::textures
