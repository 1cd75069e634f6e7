#include "tools/assetgen/spirelight/Lights.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "tools/assetgen/core/Noise.h"
#include "tools/assetgen/core/Rng.h"
#include "tools/assetgen/spirelight/City.h"

namespace tools::assetgen::spirelight {

using Pixel = core::Image::Pixel;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int CELL = 16;

float smooth(double edge0, double edge1, double x) {
    const double t = std::clamp((x - edge0) / (edge1 - edge0), 0.0, 1.0);
    return static_cast<float>(t * t * (3.0 - 2.0 * t));
}

/// The night sky's colour at `elevation` degrees: the haze of the city at the horizon (the fog
/// colour of the scene), deep blue-black overhead.
std::array<double, 3> skyColour(double elevation) {
    struct Stop {
        double elevation;
        std::array<double, 3> colour;
    };
    static const std::array<Stop, 7> stops = {{{-90.0, {0.145, 0.137, 0.141}},
                                               {0.0, {0.145, 0.137, 0.141}},
                                               {3.0, {0.105, 0.100, 0.122}},
                                               {9.0, {0.058, 0.062, 0.098}},
                                               {22.0, {0.026, 0.036, 0.074}},
                                               {50.0, {0.012, 0.020, 0.050}},
                                               {90.0, {0.008, 0.013, 0.036}}}};
    for (std::size_t i = 1; i < stops.size(); ++i) {
        if (elevation <= stops[i].elevation) {
            const double t = (elevation - stops[i - 1].elevation) / (stops[i].elevation - stops[i - 1].elevation);
            const double s = t * t * (3.0 - 2.0 * t);
            std::array<double, 3> c{};
            for (int k = 0; k < 3; ++k) {
                c[k] = stops[i - 1].colour[k] + (stops[i].colour[k] - stops[i - 1].colour[k]) * s;
            }
            return c;
        }
    }
    return stops.back().colour;
}

/// Window rectangle inside its 16 x 16 cell for each style: left, top, right, bottom (exclusive).
std::array<int, 4> windowRect(int style) {
    switch (style) {
    case 0: return {3, 3, 13, 12};  // punched windows in concrete
    case 1: return {1, 4, 16, 12};  // ribbons of glass between spandrels
    default: return {1, 1, 16, 16}; // curtain wall: glass with thin mullions
    }
}

} // namespace

core::Image Lights::facades() {
    core::Image image(City::COLUMNS * CELL, City::FLOORS * CELL, {0.1f, 0.1f, 0.11f, 0.1f});
    const std::array<Pixel, 3> walls = {Pixel{0.17f, 0.155f, 0.14f, 0.15f}, Pixel{0.12f, 0.13f, 0.15f, 0.3f},
                                        Pixel{0.07f, 0.08f, 0.1f, 0.6f}};
    const std::array<Pixel, 3> glass = {Pixel{0.05f, 0.06f, 0.075f, 0.9f}, Pixel{0.04f, 0.06f, 0.09f, 1.0f},
                                        Pixel{0.045f, 0.06f, 0.085f, 1.0f}};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < City::STYLES * City::STYLE_COLUMNS * CELL; ++x) {
            const int style = x / (City::STYLE_COLUMNS * CELL);
            const auto r = windowRect(style);
            const int cx = x % CELL;
            const int cy = y % CELL;
            const bool isGlass = cx >= r[0] && cx < r[2] && cy >= r[1] && cy < r[3];
            image.at(x, y) = isGlass ? glass[style] : walls[style];
        }
    }
    return image;
}

core::Image Lights::windows() {
    core::Image image(City::COLUMNS * CELL, City::FLOORS * CELL, {0.0f, 0.0f, 0.0f, 1.0f});
    core::Rng rng(0x11697);
    const std::array<double, 3> share = {0.26, 0.2, 0.14};
    for (int floor = 0; floor < City::FLOORS; ++floor) {
        for (int column = 0; column < City::STYLES * City::STYLE_COLUMNS; ++column) {
            const int style = column / City::STYLE_COLUMNS;
            // Lit windows come in clusters (a flat, an office floor), not as salt and pepper.
            const double cluster = core::Noise::gradient(column * 0.23, floor * 0.41, 0x71 + style);
            if (rng.uniform() > share[style] + 0.35 * cluster) {
                continue;
            }
            Pixel colour;
            const double pick = rng.uniform();
            const bool warm = style == 0 ? pick < 0.85 : style == 1 ? pick < 0.2 : pick < 0.35;
            if (warm) {
                colour = {1.0f, 0.68f, 0.36f, 1.0f};
            } else {
                colour = pick > 0.9 ? Pixel{0.95f, 0.93f, 0.88f, 1.0f} : Pixel{0.58f, 0.76f, 1.0f, 1.0f};
            }
            const auto level = static_cast<float>(rng.uniform(0.18, 0.5));
            const bool curtain = rng.uniform() < 0.3;
            const auto r = windowRect(style);
            for (int cy = r[1]; cy < r[3]; ++cy) {
                for (int cx = r[0]; cx < r[2]; ++cx) {
                    // Brighter towards the ceiling lights; a drawn curtain keeps a dim glow.
                    const float fall = 0.75f + 0.25f * static_cast<float>(r[3] - cy) / static_cast<float>(r[3] - r[1]);
                    const float dim = curtain && cx > (r[0] + r[2]) / 2 ? 0.45f : 1.0f;
                    Pixel& p = image.at(column * CELL + cx, floor * CELL + cy);
                    for (int k = 0; k < 3; ++k) {
                        p[k] = colour[k] * level * fall * dim;
                    }
                }
            }
        }
    }
    return image;
}

core::Image Lights::neon() {
    constexpr int W = 128, H = 64;
    core::Image image(4 * W, 4 * H, {0.0f, 0.0f, 0.0f, 1.0f});
    const std::array<Pixel, 6> colours = {Pixel{1.0f, 0.18f, 0.62f, 1.0f}, Pixel{0.15f, 0.85f, 1.0f, 1.0f},
                                          Pixel{1.0f, 0.45f, 0.12f, 1.0f}, Pixel{0.45f, 1.0f, 0.4f, 1.0f},
                                          Pixel{0.55f, 0.35f, 1.0f, 1.0f}, Pixel{1.0f, 0.85f, 0.3f, 1.0f}};
    core::Rng rng(0x4E04);
    struct Segment {
        double x0, y0, x1, y1;
        int colour;
    };
    for (int cell = 0; cell < 16; ++cell) {
        std::vector<Segment> strokes;
        const int frame = rng.below(6);
        const int letters = rng.below(6);
        // A rounded frame, then a line of made-up glyphs, each of a few strokes on a 3 x 4 grid.
        const double m = 10.0;
        strokes.push_back({m, m, W - m, m, frame});
        strokes.push_back({W - m, m, W - m, H - m, frame});
        strokes.push_back({W - m, H - m, m, H - m, frame});
        strokes.push_back({m, H - m, m, m, frame});
        const int count = 3 + rng.below(3);
        const double gw = (W - 2 * m - 12.0) / count;
        for (int g = 0; g < count; ++g) {
            const double left = m + 6.0 + g * gw + gw * 0.15;
            const double width = gw * 0.7;
            const int parts = 2 + rng.below(3);
            for (int p = 0; p < parts; ++p) {
                const int a = rng.below(12), b = rng.below(12);
                if (a == b) {
                    continue;
                }
                const auto gx = [&](int i) { return left + width * (i % 3) / 2.0; };
                const auto gy = [&](int i) { return m + 8.0 + (H - 2 * m - 16.0) * (i / 3) / 3.0; };
                strokes.push_back({gx(a), gy(a), gx(b), gy(b), letters});
            }
        }
        const int ox = (cell % 4) * W, oy = (cell / 4) * H;
        for (int y = 0; y < H; ++y) {
            for (int x = 0; x < W; ++x) {
                Pixel sum{0.0f, 0.0f, 0.0f, 1.0f};
                for (const Segment& s : strokes) {
                    const double dx = s.x1 - s.x0, dy = s.y1 - s.y0;
                    const double len2 = std::max(dx * dx + dy * dy, 1e-9);
                    const double t = std::clamp(((x + 0.5 - s.x0) * dx + (y + 0.5 - s.y0) * dy) / len2, 0.0, 1.0);
                    const double d = std::hypot(x + 0.5 - (s.x0 + t * dx), y + 0.5 - (s.y0 + t * dy));
                    // A white-hot tube inside its coloured glow.
                    const float core = smooth(2.6, 1.0, d);
                    const float glow = static_cast<float>(0.45 * std::exp(-d / 3.5));
                    const Pixel& c = colours[static_cast<std::size_t>(s.colour)];
                    for (int k = 0; k < 3; ++k) {
                        sum[k] = std::max(sum[k], core * (0.75f * c[k] + 0.25f) + glow * c[k]);
                    }
                }
                image.at(ox + x, oy + y) = sum;
            }
        }
    }
    return image;
}

core::Image Lights::distant() {
    core::Image image(256, 64, {0.05f, 0.055f, 0.07f, 1.0f});
    core::Rng rng(0xD15);
    for (int y = 1; y < 64; y += 3) {
        for (int x = 0; x < 256; x += 3) {
            if (rng.uniform() < 0.22) {
                const bool warm = rng.uniform() < 0.7;
                const auto level = static_cast<float>(rng.uniform(0.35, 0.7));
                image.at(x, y) = warm ? Pixel{level, 0.75f * level, 0.45f * level, 1.0f}
                                      : Pixel{0.6f * level, 0.75f * level, level, 1.0f};
            }
        }
    }
    return image;
}

core::Image Lights::sky() {
    core::Image image(16, 256);
    for (int y = 0; y < image.height(); ++y) {
        const double elevation = 90.0 - (y + 0.5) / image.height() * 102.0;
        const auto c = skyColour(elevation);
        for (int x = 0; x < image.width(); ++x) {
            image.at(x, y) = {static_cast<float>(c[0]), static_cast<float>(c[1]), static_cast<float>(c[2]), 1.0f};
        }
    }
    return image;
}

core::Image Lights::skyFaces(int size) {
    core::Image image(size, 6 * size);
    for (int face = 0; face < 6; ++face) {
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const double s = (x + 0.5) / size * 2.0 - 1.0;
                const double t = (y + 0.5) / size * 2.0 - 1.0;
                // The inverse of the face choice in the "Building" shader.
                const std::array<std::array<double, 3>, 6> directions = {{{1.0, -s, t},
                                                                          {-1.0, s, t},
                                                                          {s, 1.0, t},
                                                                          {-s, -1.0, t},
                                                                          {s, t, 1.0},
                                                                          {s, -t, -1.0}}};
                const auto& d = directions[static_cast<std::size_t>(face)];
                const double length = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
                const double elevation = std::asin(d[2] / length) * 180.0 / kPi;
                auto c = skyColour(std::max(elevation, 0.0));
                // A band of city glow along the horizon; below it the sea, with lights mirrored in it.
                const double band = std::exp(-std::abs(elevation) / 4.0);
                const double azimuth = std::atan2(d[1], d[0]);
                const double lights = std::max(0.0, core::Noise::gradient(azimuth * 6.0, elevation / 6.0, 0x5E4));
                for (int k = 0; k < 3; ++k) {
                    const std::array<double, 3> glow = {0.42, 0.30, 0.22};
                    c[k] += band * glow[k] * 0.6;
                    if (elevation < 0.0) {
                        c[k] = c[k] * 0.35 + lights * glow[k] * 0.5 * band;
                    }
                }
                image.at(x, face * size + y) = {static_cast<float>(c[0]), static_cast<float>(c[1]),
                                                static_cast<float>(c[2]), 1.0f};
            }
        }
    }
    return image;
}

core::Image Lights::flare(int size) {
    core::Image image(size, size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double dx = (x + 0.5) / size * 2.0 - 1.0;
            const double dy = (y + 0.5) / size * 2.0 - 1.0;
            const double r = std::hypot(dx, dy);
            const double glow = std::exp(-r * r / (2.0 * 0.18 * 0.18));
            const double rays = 0.25 * std::exp(-std::abs(dx) * 18.0) * std::max(0.0, 1.0 - std::abs(dy)) +
                                0.25 * std::exp(-std::abs(dy) * 18.0) * std::max(0.0, 1.0 - std::abs(dx));
            const auto v = static_cast<float>(std::min(1.0, glow + rays) * smooth(1.0, 0.85, r));
            image.at(x, y) = {v, v, v, 1.0f};
        }
    }
    return image;
}

core::Image Lights::dust(int size) {
    core::Image image(size, size);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const double r = std::hypot((x + 0.5) / size * 2.0 - 1.0, (y + 0.5) / size * 2.0 - 1.0);
            const float v = smooth(0.95, 0.35, r);
            image.at(x, y) = {v, v, v, 1.0f};
        }
    }
    return image;
}

} // namespace tools::assetgen::spirelight
