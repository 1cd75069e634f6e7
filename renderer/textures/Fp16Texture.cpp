#include "renderer/textures/Fp16Texture.h"

#include <stdexcept>

#include "renderer/textures/LoadError.h"
#include "renderer/textures/ResourceFile.h"

namespace renderer::textures {

std::size_t Fp16Texture::byteSize(int width, int height) {
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 8;
}

namespace {

void checkSceneSize(int width, int height, const std::string& name) {
    if (width < 1 || height < 1 || width > Fp16Texture::MAX_SIZE || height > Fp16Texture::MAX_SIZE) {
        throw std::invalid_argument("Half-float texture " + name + " needs a size of 1 to " +
                                    std::to_string(Fp16Texture::MAX_SIZE) + " each way, not " + std::to_string(width) +
                                    "x" + std::to_string(height));
    }
}

} // namespace

void Fp16Texture::check(std::size_t fileSize, int width, int height, const std::string& name) {
    checkSceneSize(width, height, name);
    if (fileSize == 0) {
        throw LoadError(name, "empty file", "Empty half-float texture " + name);
    }
    if (fileSize < byteSize(width, height)) {
        throw LoadError(name, std::to_string(fileSize) + " bytes where the scene's " + std::to_string(width) + "x" +
                                  std::to_string(height) + " needs " + std::to_string(byteSize(width, height)));
    }
}

LoadedTexture Fp16Texture::load(gl::Gl& gl, const std::string& name, const std::filesystem::path& directory, int width,
                                int height) {
    // The size comes from the scene, so it is checked before the file is even read.
    checkSceneSize(width, height, name);
    const auto file = ResourceFile::read(directory, name);
    check(file.size(), width, height, name);
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
