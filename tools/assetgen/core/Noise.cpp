#include "tools/assetgen/core/Noise.h"

#include <cmath>

namespace tools::assetgen::core {

namespace {

double fade(double t) { return t * t * t * (t * (t * 6.0 - 15.0) + 10.0); }

double cornerDot(std::int32_t ix, std::int32_t iy, double dx, double dy, std::uint32_t seed) {
    const std::uint32_t h = Noise::hash(ix, iy, seed);
    const double angle = static_cast<double>(h) * (6.283185307179586 / 4294967296.0);
    return std::cos(angle) * dx + std::sin(angle) * dy;
}

int wrap(std::int64_t value, int period) {
    const std::int64_t r = value % period;
    return static_cast<int>(r < 0 ? r + period : r);
}

} // namespace

std::uint32_t Noise::hash(std::int32_t x, std::int32_t y, std::uint32_t seed) {
    std::uint32_t h = seed * 0x9E3779B9u;
    h ^= static_cast<std::uint32_t>(x) * 0x85EBCA6Bu;
    h = (h << 13) | (h >> 19);
    h ^= static_cast<std::uint32_t>(y) * 0xC2B2AE35u;
    h ^= h >> 16;
    h *= 0x7FEB352Du;
    h ^= h >> 15;
    h *= 0x846CA68Bu;
    h ^= h >> 16;
    return h;
}

double Noise::gradient(double x, double y, std::uint32_t seed) {
    const double fx = std::floor(x);
    const double fy = std::floor(y);
    const auto ix = static_cast<std::int32_t>(fx);
    const auto iy = static_cast<std::int32_t>(fy);
    const double dx = x - fx;
    const double dy = y - fy;
    const double u = fade(dx);
    const double v = fade(dy);
    const double a = cornerDot(ix, iy, dx, dy, seed);
    const double b = cornerDot(ix + 1, iy, dx - 1.0, dy, seed);
    const double c = cornerDot(ix, iy + 1, dx, dy - 1.0, seed);
    const double d = cornerDot(ix + 1, iy + 1, dx - 1.0, dy - 1.0, seed);
    return 1.41421356 * ((a + (b - a) * u) + ((c + (d - c) * u) - (a + (b - a) * u)) * v);
}

double Noise::gradientPeriodic(double x, double y, int period, std::uint32_t seed) {
    const double fx = std::floor(x);
    const double fy = std::floor(y);
    const auto ix = static_cast<std::int64_t>(fx);
    const auto iy = static_cast<std::int64_t>(fy);
    const double dx = x - fx;
    const double dy = y - fy;
    const double u = fade(dx);
    const double v = fade(dy);
    const int x0 = wrap(ix, period);
    const int x1 = wrap(ix + 1, period);
    const int y0 = wrap(iy, period);
    const int y1 = wrap(iy + 1, period);
    const double a = cornerDot(x0, y0, dx, dy, seed);
    const double b = cornerDot(x1, y0, dx - 1.0, dy, seed);
    const double c = cornerDot(x0, y1, dx, dy - 1.0, seed);
    const double d = cornerDot(x1, y1, dx - 1.0, dy - 1.0, seed);
    return 1.41421356 * ((a + (b - a) * u) + ((c + (d - c) * u) - (a + (b - a) * u)) * v);
}

double Noise::fbm(double x, double y, int octaves, std::uint32_t seed) {
    double sum = 0.0;
    double amplitude = 0.5;
    double norm = 0.0;
    for (int i = 0; i < octaves; ++i) {
        sum += amplitude * gradient(x, y, seed + static_cast<std::uint32_t>(i) * 1013u);
        norm += amplitude;
        amplitude *= 0.5;
        x = x * 2.0 + 17.31;
        y = y * 2.0 - 9.77;
    }
    return sum / norm;
}

double Noise::fbmPeriodic(double x, double y, int period, int octaves, std::uint32_t seed) {
    double sum = 0.0;
    double amplitude = 0.5;
    double norm = 0.0;
    for (int i = 0; i < octaves; ++i) {
        sum += amplitude * gradientPeriodic(x, y, period, seed + static_cast<std::uint32_t>(i) * 1013u);
        norm += amplitude;
        amplitude *= 0.5;
        x *= 2.0;
        y *= 2.0;
        period *= 2;
    }
    return sum / norm;
}

double Noise::ridged(double x, double y, int octaves, std::uint32_t seed) {
    double sum = 0.0;
    double amplitude = 0.5;
    double norm = 0.0;
    double weight = 1.0;
    for (int i = 0; i < octaves; ++i) {
        double n = 1.0 - std::fabs(gradient(x, y, seed + static_cast<std::uint32_t>(i) * 7919u));
        n *= n;
        n *= weight;
        weight = std::fmin(1.0, n * 1.6);
        sum += amplitude * n;
        norm += amplitude;
        amplitude *= 0.5;
        x = x * 2.03 + 3.1;
        y = y * 2.03 - 1.7;
    }
    return sum / norm;
}

} // namespace tools::assetgen::core
