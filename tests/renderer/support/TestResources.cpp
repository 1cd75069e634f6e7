#include "tests/renderer/support/TestResources.h"

#include <cstring>
#include <fstream>
#include <random>
#include <stdexcept>

#include "renderer/loaders/HalfFloat.h"

namespace renderer::test {

TestResources::TestResources() {
    std::random_device random;
    const auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        auto candidate = base / ("nivalis-renderer-test-" + std::to_string(random()));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate;
            return;
        }
    }
    throw std::runtime_error("no temporary directory");
}

TestResources::~TestResources() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

void TestResources::writeFile(const std::filesystem::path& relative, const std::vector<std::byte>& bytes) const {
    const auto file = path_ / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void TestResources::writeText(const std::filesystem::path& relative, const std::string& text) const {
    std::vector<std::byte> bytes(text.size());
    std::memcpy(bytes.data(), text.data(), text.size());
    writeFile(relative, bytes);
}

void TestResources::writeShader(const std::string& name, const std::string& vertexSource,
                                const std::string& fragmentSource) const {
    writeText(std::filesystem::path("shaders") / (name + ".vert"), vertexSource);
    writeText(std::filesystem::path("shaders") / (name + ".frag"), fragmentSource);
}

void TestResources::writeModel(const std::string& root, const std::string& name,
                               const std::vector<std::byte>& vertices, const std::vector<std::uint16_t>& indices) const {
    const std::filesystem::path stem = name.find('/') == std::string::npos
                                           ? std::filesystem::path(root) / "models" / name
                                           : std::filesystem::path(root) / name;
    writeFile(stem.string() + "-strides.bin", vertices);
    std::vector<std::byte> indexBytes(indices.size() * 2);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        indexBytes[2 * i] = static_cast<std::byte>(indices[i] & 0xff);
        indexBytes[2 * i + 1] = static_cast<std::byte>(indices[i] >> 8);
    }
    writeFile(stem.string() + "-indices.bin", indexBytes);
}

void TestResources::writeFp16Texture(const std::string& root, const std::string& fileName,
                                     const std::vector<std::uint16_t>& halves) const {
    std::vector<std::byte> bytes(halves.size() * 2);
    std::memcpy(bytes.data(), halves.data(), bytes.size());
    writeFile(std::filesystem::path(root) / "textures" / fileName, bytes);
}

void TestResources::writeVignetteModel(const std::vector<float>& vertices,
                                       const std::vector<std::uint16_t>& indices) const {
    std::vector<std::byte> bytes;
    for (std::size_t i = 0; i + 2 < vertices.size(); i += 3) {
        const std::uint16_t x = loaders::HalfFloat::fromFloat(vertices[i]);
        const std::uint16_t y = loaders::HalfFloat::fromFloat(vertices[i + 1]);
        const auto ao = static_cast<std::uint8_t>(vertices[i + 2] * 255.0f + 0.5f);
        const std::uint8_t vertex[8] = {static_cast<std::uint8_t>(x & 0xff), static_cast<std::uint8_t>(x >> 8),
                                        static_cast<std::uint8_t>(y & 0xff), static_cast<std::uint8_t>(y >> 8),
                                        0, 0, ao, 0};
        for (std::uint8_t b : vertex) {
            bytes.push_back(static_cast<std::byte>(b));
        }
    }
    writeModel("", "models/vignette-round-vntao", bytes, indices);
}

std::vector<std::byte> TestResources::floatBytes(const std::vector<float>& values) {
    std::vector<std::byte> bytes(values.size() * 4);
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

std::vector<std::byte> TestResources::halfBytes(const std::vector<float>& values) {
    std::vector<std::byte> bytes;
    for (float value : values) {
        const std::uint16_t half = loaders::HalfFloat::fromFloat(value);
        bytes.push_back(static_cast<std::byte>(half & 0xff));
        bytes.push_back(static_cast<std::byte>(half >> 8));
    }
    return bytes;
}

} // namespace renderer::test
