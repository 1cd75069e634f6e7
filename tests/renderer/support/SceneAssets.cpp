#include "tests/renderer/support/SceneAssets.h"

#include <webp/encode.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace renderer::test {

namespace {

std::vector<std::byte> webpImage() {
    std::uint8_t pixels[4 * 4 * 4];
    for (int i = 0; i < 16; ++i) {
        pixels[4 * i] = static_cast<std::uint8_t>(i * 16);
        pixels[4 * i + 1] = 128;
        pixels[4 * i + 2] = 64;
        pixels[4 * i + 3] = 255;
    }
    std::uint8_t* output = nullptr;
    const std::size_t size = WebPEncodeLosslessRGBA(pixels, 4, 4, 16, &output);
    if (size == 0) {
        throw std::runtime_error("WebP encoding failed");
    }
    std::vector<std::byte> bytes(size);
    std::memcpy(bytes.data(), output, size);
    WebPFree(output);
    return bytes;
}

/// An ASTC file of 4 x 4 blocks for a `width` by `height` image; every block is a void-extent
/// block of one colour.
std::vector<std::byte> astcImage(int width, int height) {
    std::vector<std::byte> bytes(16, std::byte{0});
    const std::uint8_t header[16] = {0x13,
                                     0xAB,
                                     0xA1,
                                     0x5C,
                                     4,
                                     4,
                                     1,
                                     static_cast<std::uint8_t>(width & 0xff),
                                     static_cast<std::uint8_t>((width >> 8) & 0xff),
                                     static_cast<std::uint8_t>(width >> 16),
                                     static_cast<std::uint8_t>(height & 0xff),
                                     static_cast<std::uint8_t>((height >> 8) & 0xff),
                                     static_cast<std::uint8_t>(height >> 16),
                                     1,
                                     0,
                                     0};
    std::memcpy(bytes.data(), header, 16);
    const int blocks = ((width + 3) / 4) * ((height + 3) / 4);
    const std::uint8_t voidExtent[16] = {0xFC, 0xFD, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                         0x00, 0x80, 0x00, 0x80, 0x00, 0x80, 0xFF, 0xFF};
    for (int i = 0; i < blocks; ++i) {
        for (std::uint8_t b : voidExtent) {
            bytes.push_back(static_cast<std::byte>(b));
        }
    }
    return bytes;
}

} // namespace

void SceneAssets::write(const engine::Scene& scene, const TestResources& resources, const std::string& root,
                        bool shaders) {
    // Whole vertices for every stride that is a multiple of 4 up to 32 bytes, as the loader
    // checks each model against the strides of its draws.
    const std::vector<std::byte> vertices(3360, std::byte{0});
    for (const auto& mesh : scene.meshes) {
        if (mesh) {
            resources.writeModel(root, mesh->fileName, vertices, {0, 1, 2});
        }
    }
    const auto webp = webpImage();
    for (const auto& texture : scene.textures) {
        if (!texture) {
            continue;
        }
        const std::filesystem::path directory = std::filesystem::path(root) / "textures";
        switch (texture->format) {
        case engine::TextureFormat::RGBA8:
        case engine::TextureFormat::RGB8:
            resources.writeFile(directory / (texture->fileName + ".webp"), webp);
            break;
        case engine::TextureFormat::RGBA16F:
            resources.writeFile(directory / texture->fileName,
                                std::vector<std::byte>(static_cast<std::size_t>(texture->width) *
                                                           static_cast<std::size_t>(texture->height) * 8,
                                                       std::byte{0}));
            break;
        case engine::TextureFormat::ASTC: {
            const int size = 16;
            if (texture->mipmaps == 0) {
                resources.writeFile(directory / (texture->fileName + ".astc"), astcImage(size, size));
            } else {
                for (int level = 0; level <= texture->mipmaps; ++level) {
                    const int levelSize = std::max(1, size >> level);
                    resources.writeFile(directory / (texture->fileName + "_" + std::to_string(level) + ".astc"),
                                        astcImage(levelSize, levelSize));
                }
            }
            break;
        }
        default:
            break;
        }
    }
    resources.writeVignetteModel({-1, -1, 0, 1, -1, 0, 0, 1, 1}, {0, 1, 2});
    if (!shaders) {
        return;
    }
    for (const auto& shader : scene.shaders) {
        if (shader) {
            resources.writeShader(shader->name, "// " + shader->name + "\n", "\n");
        }
    }
    for (const char* name : {"Vignette", "FullscreenQuad", "GaussianBlur", "GaussianBlur4", "GaussianBlur3",
                             "GaussianBlur2"}) {
        resources.writeShader(name, std::string("// ") + name + "\n", "\n");
    }
}

} // namespace renderer::test
