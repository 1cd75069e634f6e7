#pragma once

#include "tools/assetgen/nivalis/Geography.h"

namespace tools::assetgen::nivalis {

/// The height of the land and the sea floor at any point of the sea plane (z = 0 is the water
/// line). Built from the islands of the Geography, then made to respect what the scene requires:
/// water along every ship course, land below every camera eye, level ground at the exact height
/// of every animal and along every seal walk. The terrain mesh samples this function, and the
/// geography checks ask it.
class Terrain {
public:
    /// Depth of the sea floor away from land.
    static constexpr double SEA_FLOOR = -120.0;

    explicit Terrain(const Geography& geography);

    /// Final height at (x, y).
    double height(double x, double y) const;
    /// Height of the islands alone, before courses, cameras and level ground are respected.
    double islandHeight(double x, double y) const;
    /// The index of the island whose land reaches (x, y) highest, or -1 over open sea.
    int islandAt(double x, double y) const;
    /// Signed distance from the coast of island `index` (positive inland), coast noise included.
    double coastDistance(int index, double x, double y) const;
    /// 1 where a calm zone of island `index` rules the ground, fading to 0 outside.
    double calmWeight(int index, double x, double y) const;

    /// The shared instance for the scene's geography.
    static const Terrain& shared();

private:
    double heightOf(int index, double x, double y) const;
    const Geography& geography_;
};

} // namespace tools::assetgen::nivalis
