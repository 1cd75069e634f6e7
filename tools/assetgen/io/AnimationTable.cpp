#include "tools/assetgen/io/AnimationTable.h"

#include <stdexcept>
#include <string>

#include "tools/assetgen/core/Half.h"

namespace tools::assetgen::io {

int AnimationTable::chunks(int vertices, int textureWidth) { return (vertices + textureWidth - 1) / textureWidth; }

std::vector<std::uint8_t> AnimationTable::pack(const std::vector<std::vector<core::Vec3d>>& poses, int textureWidth,
                                               int frames) {
    if (static_cast<int>(poses.size()) != frames || frames <= 0 || textureWidth <= 0) {
        throw std::invalid_argument("Animation needs " + std::to_string(frames) + " poses, has " +
                                    std::to_string(poses.size()));
    }
    const int vertices = static_cast<int>(poses.front().size());
    for (const auto& pose : poses) {
        if (static_cast<int>(pose.size()) != vertices) {
            throw std::invalid_argument("Animation poses differ in vertex count");
        }
    }
    const int blockRows = frames + 1;
    const int rows = chunks(vertices, textureWidth) * blockRows;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(textureWidth) * rows * 8, 0);
    auto texel = [&](int x, int y, const core::Vec3d& p) {
        std::uint8_t* at = bytes.data() + (static_cast<std::size_t>(y) * textureWidth + x) * 8;
        const std::uint16_t values[4] = {core::Half::fromFloat(static_cast<float>(p.x)),
                                         core::Half::fromFloat(static_cast<float>(p.y)),
                                         core::Half::fromFloat(static_cast<float>(p.z)), core::Half::fromFloat(1.0f)};
        for (int c = 0; c < 4; ++c) {
            at[c * 2] = static_cast<std::uint8_t>(values[c] & 0xFFu);
            at[c * 2 + 1] = static_cast<std::uint8_t>(values[c] >> 8);
        }
    };
    for (int i = 0; i < vertices; ++i) {
        const int chunk = i / textureWidth;
        const int x = i % textureWidth;
        for (int f = 0; f <= frames; ++f) {
            texel(x, chunk * blockRows + f, poses[f % frames][i]);
        }
    }
    return bytes;
}

} // namespace tools::assetgen::io
