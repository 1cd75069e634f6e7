#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace renderer::test {

/// A resources directory of a test's own, in a fresh temporary folder that goes with the
/// object: shader sources, model file pairs and raw half-float textures, in the layout the
/// renderer reads (`shaders/<Name>.vert|frag`, `<root>/models/<name>-strides.bin|-indices.bin`,
/// `<root>/textures/<file>`).
class TestResources {
public:
    TestResources();
    ~TestResources();
    TestResources(const TestResources&) = delete;
    TestResources& operator=(const TestResources&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Writes `relative` with `bytes`, making folders as needed.
    void writeFile(const std::filesystem::path& relative, const std::vector<std::byte>& bytes) const;
    void writeText(const std::filesystem::path& relative, const std::string& text) const;
    /// The two stages of shader `name`.
    void writeShader(const std::string& name, const std::string& vertexSource, const std::string& fragmentSource) const;
    /// A model pair `<root>/<dir>/<name>-strides.bin` and `-indices.bin` (dir "models" for a bare
    /// name, as the renderer looks for it).
    void writeModel(const std::string& root, const std::string& name, const std::vector<std::byte>& vertices,
                    const std::vector<std::uint16_t>& indices) const;
    /// A raw RGBA16F texture file of `halves` (4 per pixel) as `<root>/textures/<fileName>`.
    void writeFp16Texture(const std::string& root, const std::string& fileName,
                          const std::vector<std::uint16_t>& halves) const;
    /// The vignette pair "models/vignette-round-vntao" at the top: `vertices` are x, y, ao
    /// triples written in its 8-byte layout (two halves, two unused bytes, one byte, one unused).
    void writeVignetteModel(const std::vector<float>& vertices, const std::vector<std::uint16_t>& indices) const;

    /// Bytes of floats, halves of floats, for vertex files.
    static std::vector<std::byte> floatBytes(const std::vector<float>& values);
    static std::vector<std::byte> halfBytes(const std::vector<float>& values);

private:
    std::filesystem::path path_;
};

} // namespace renderer::test
