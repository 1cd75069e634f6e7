#include "tests/tools/render/TestResources.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "engine/Mesh.h"
#include "engine/Texture.h"
#include "tests/renderer/loaders/LoaderFiles.h"
#include "tools/render/SceneSetup.h"

namespace tools::render::test {

namespace {

using renderer::test::astcFile;
using renderer::test::encodeAstc;
using renderer::test::encodeWebp;
using renderer::test::halfBits;

void writeFile(const std::filesystem::path& path, const std::vector<std::byte>& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

template <typename T> void put(std::vector<std::byte>& bytes, T value) {
    const std::size_t at = bytes.size();
    bytes.resize(at + sizeof(T));
    std::memcpy(bytes.data() + at, &value, sizeof(T));
}

std::vector<std::byte> indices(const std::vector<std::uint16_t>& values) {
    std::vector<std::byte> bytes;
    for (auto v : values) {
        put(bytes, v);
    }
    return bytes;
}

std::vector<std::uint8_t> solid(int width, int height, std::uint32_t rgba) {
    std::vector<std::uint8_t> pixels;
    for (int i = 0; i < width * height; ++i) {
        for (int shift = 24; shift >= 0; shift -= 8) {
            pixels.push_back(static_cast<std::uint8_t>(rgba >> shift));
        }
    }
    return pixels;
}

// A sphere of radius 60000 around the origin: it encloses every camera of the scene, and its
// far side stays inside the far plane. Vertices: float3 position, half2 texture coordinates,
// 16 bytes. Every triangle is written in both windings, so that culling keeps one of them.
void writeSky(const std::filesystem::path& models) {
    constexpr int columns = 24;
    constexpr int rows = 12;
    constexpr float radius = 60000.0f;
    std::vector<std::byte> vertices;
    for (int row = 0; row <= rows; ++row) {
        const double polar = M_PI * row / rows;
        for (int column = 0; column <= columns; ++column) {
            const double azimuth = 2.0 * M_PI * column / columns;
            put(vertices, static_cast<float>(radius * std::sin(polar) * std::cos(azimuth)));
            put(vertices, static_cast<float>(radius * std::sin(polar) * std::sin(azimuth)));
            put(vertices, static_cast<float>(radius * std::cos(polar)));
            put(vertices, halfBits(static_cast<float>(column) / columns));
            put(vertices, halfBits(static_cast<float>(row) / rows));
        }
    }
    std::vector<std::uint16_t> triangles;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const auto a = static_cast<std::uint16_t>(row * (columns + 1) + column);
            const auto b = static_cast<std::uint16_t>(a + 1);
            const auto c = static_cast<std::uint16_t>(a + columns + 1);
            const auto d = static_cast<std::uint16_t>(c + 1);
            triangles.insert(triangles.end(), {a, c, b, b, c, d, a, b, c, b, d, c});
        }
    }
    writeFile(models / "sky-strides.bin", vertices);
    writeFile(models / "sky-indices.bin", indices(triangles));
}

// The vignette quad in clip space: half2 position, two unused bytes, openness 0, one unused.
void writeVignette(const std::filesystem::path& resources) {
    std::vector<std::byte> vertices;
    for (const auto& [x, y] : std::vector<std::pair<float, float>>{{-1, -1}, {1, -1}, {-1, 1}, {1, 1}}) {
        put(vertices, halfBits(x));
        put(vertices, halfBits(y));
        put(vertices, std::uint16_t{0});
        put(vertices, std::uint8_t{0});
        put(vertices, std::uint8_t{0});
    }
    writeFile(resources / "models" / "vignette-round-vntao-strides.bin", vertices);
    writeFile(resources / "models" / "vignette-round-vntao-indices.bin", indices({0, 1, 2, 2, 1, 3}));
}

std::uint32_t skyColour(const std::string& fileName) {
    if (fileName == "sky-night") {
        return TestResources::SKY_NIGHT;
    }
    if (fileName == "sky-sunrise") {
        return TestResources::SKY_SUNRISE;
    }
    if (fileName == "sky-sunset") {
        return TestResources::SKY_SUNSET;
    }
    return TestResources::SKY_DAY;
}

void writeTexture(const engine::Texture& texture, const std::filesystem::path& directory) {
    switch (texture.format) {
    case engine::TextureFormat::RGBA8:
    case engine::TextureFormat::RGB8: {
        const std::uint32_t colour = texture.fileName.starts_with("sky") ? skyColour(texture.fileName) : 0x808080FFu;
        writeFile(directory / (texture.fileName + ".webp"), encodeWebp(solid(2, 2, colour), 2, 2));
        break;
    }
    case engine::TextureFormat::RGBA16F:
        writeFile(directory / texture.fileName,
                  std::vector<std::byte>(static_cast<std::size_t>(texture.width) * texture.height * 8));
        break;
    case engine::TextureFormat::ASTC: {
        const auto file = astcFile(4, 4, 4, 4, encodeAstc(solid(4, 4, 0x808080FFu), 4, 4, 4, 4));
        if (texture.mipmaps == 0) {
            writeFile(directory / (texture.fileName + ".astc"), file);
        }
        for (int level = 0; texture.mipmaps > 0 && level <= texture.mipmaps; ++level) {
            writeFile(directory / (texture.fileName + "_" + std::to_string(level) + ".astc"), file);
        }
        break;
    }
    default:
        break;
    }
}

} // namespace

void TestResources::write(const std::string& sceneName, const std::filesystem::path& resources,
                          const std::filesystem::path& shaders) {
    const auto scene = SceneSetup::create(sceneName);
    const auto root = resources / SceneSetup::resourcesRoot(sceneName);
    for (const auto& mesh : scene->meshes) {
        if (sceneName == "nivalis" && mesh->fileName == "sky") {
            writeSky(root / "models");
            continue;
        }
        // One vertex of zeros in the file's stride and a triangle that covers no pixel.
        const std::size_t stride = mesh->attributes ? static_cast<std::size_t>(mesh->attributes->stride()) : 4;
        const std::filesystem::path name = mesh->fileName;
        const auto directory = name.has_parent_path() ? root / name.parent_path() : root / "models";
        writeFile(directory / (name.filename().string() + "-strides.bin"), std::vector<std::byte>(stride));
        writeFile(directory / (name.filename().string() + "-indices.bin"), indices({0, 0, 0}));
    }
    for (const auto& texture : scene->textures) {
        writeTexture(*texture, root / "textures");
    }
    writeVignette(resources);
    std::filesystem::create_directories(resources / "shaders");
    for (const auto& entry : std::filesystem::directory_iterator(shaders)) {
        std::filesystem::copy_file(entry.path(), resources / "shaders" / entry.path().filename(),
                                   std::filesystem::copy_options::overwrite_existing);
    }
}

} // namespace tools::render::test
