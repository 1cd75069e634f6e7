#pragma once

#include <cstdint>

namespace tools::assetgen::core {

/// Deterministic gradient noise and its sums, for terrain, clouds, textures. Every function is a
/// pure function of its arguments: the same seed gives the same field on every machine.
class Noise {
public:
    Noise() = delete;

    /// Gradient noise in about [-1, 1], smooth, with features of size 1.
    static double gradient(double x, double y, std::uint32_t seed);
    /// The same, repeating every `period` units on both axes (`period` a positive integer).
    static double gradientPeriodic(double x, double y, int period, std::uint32_t seed);
    /// Sum of `octaves` layers, each of half the size and amplitude of the one before; about [-1, 1].
    static double fbm(double x, double y, int octaves, std::uint32_t seed);
    /// The periodic fbm: layer i repeats every `period` * 2^i, so the sum repeats every `period`.
    static double fbmPeriodic(double x, double y, int period, int octaves, std::uint32_t seed);
    /// Ridged sum (1 - |noise|, squared, weighted by the layer before): sharp crests, in [0, 1].
    static double ridged(double x, double y, int octaves, std::uint32_t seed);
    /// A well mixed 32-bit hash of two integers and a seed.
    static std::uint32_t hash(std::int32_t x, std::int32_t y, std::uint32_t seed);
};

} // namespace tools::assetgen::core
