#include "tools/assetgen/nivalis/Caustics.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/assetgen/core/Noise.h"

namespace tools::assetgen::nivalis {

namespace {

/// Distances to the nearest and second nearest cell point, on a torus of `cells` cells.
void cellDistances(double x, double y, int cells, double& first, double& second) {
    first = 1e9;
    second = 1e9;
    const int cx = static_cast<int>(std::floor(x));
    const int cy = static_cast<int>(std::floor(y));
    // Two cells each way: with the points jittered, the second nearest may lie that far.
    for (int j = -2; j <= 2; ++j) {
        for (int i = -2; i <= 2; ++i) {
            const int gx = cx + i;
            const int gy = cy + j;
            const int wx = ((gx % cells) + cells) % cells;
            const int wy = ((gy % cells) + cells) % cells;
            const std::uint32_t h = core::Noise::hash(wx, wy, 8081u);
            const double px = gx + 0.15 + 0.7 * ((h & 0xFFFFu) / 65535.0);
            const double py = gy + 0.15 + 0.7 * ((h >> 16) / 65535.0);
            const double d = std::hypot(px - x, py - y);
            if (d < first) {
                second = first;
                first = d;
            } else if (d < second) {
                second = d;
            }
        }
    }
}

} // namespace

core::Image Caustics::image(int size, int cells) {
    core::Image image(size, size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double u = (x + 0.5) / size;
            const double v = (y + 0.5) / size;
            // Warp the cells with periodic noise so that the lines wave.
            const double wx = core::Noise::fbmPeriodic(u * 4.0, v * 4.0, 4, 3, 11u) * 0.35;
            const double wy = core::Noise::fbmPeriodic(u * 4.0 + 7.0, v * 4.0 + 3.0, 4, 3, 13u) * 0.35;
            double first = 0.0;
            double second = 0.0;
            cellDistances(u * cells + wx, v * cells + wy, cells, first, second);
            const double edge = second - first;
            double light = std::pow(std::max(0.0, 1.0 - edge / 0.22), 2.2);
            // A faint second network of finer cells, for depth.
            cellDistances(u * cells * 2.0 + wy * 1.5 + 0.37, v * cells * 2.0 + wx * 1.5 + 0.61, cells * 2, first, second);
            light += 0.35 * std::pow(std::max(0.0, 1.0 - (second - first) / 0.18), 2.5);
            const auto value = static_cast<float>(std::clamp(light, 0.0, 1.0));
            image.at(x, y) = {value, value, value, 1.0f};
        }
    }
    return image;
}

} // namespace tools::assetgen::nivalis
