#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace tools::render::test {

/// A complete but tiny resource set for one scene, written into a directory: every model the
/// scene names as one degenerate triangle (so it loads and draws nothing), every texture as the
/// smallest file of its format, the shared vignette, and the shader library copied from the
/// build tree. Two things are drawn for real, so that a picture can be judged: the vignette,
/// a quad over the whole picture that darkens it evenly (its openness is 0 everywhere), and,
/// for nivalis, the sky, a sphere around the whole world in a solid colour per time of day.
class TestResources {
public:
    /// Solid sky colours of the generated sky textures, packed as 0xRRGGBBAA.
    static constexpr std::uint32_t SKY_DAY = 0x2878DCFFu;
    static constexpr std::uint32_t SKY_NIGHT = 0x0A0A28FFu;
    static constexpr std::uint32_t SKY_SUNRISE = 0xDC8C3CFFu;
    static constexpr std::uint32_t SKY_SUNSET = 0x8C3C8CFFu;

    /// Writes the set of `scene` ("nivalis", "betonia", "example") below `resources`.
    static void write(const std::string& scene, const std::filesystem::path& resources,
                      const std::filesystem::path& shaders);
};

} // namespace tools::render::test
