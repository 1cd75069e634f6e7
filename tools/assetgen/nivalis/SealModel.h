#pragma once

#include <vector>

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// A low-poly seal lying on its belly at the origin, head towards -Y, about 11 units long.
/// The idle and the walking animation share this one model, and every pose keeps the same
/// vertices in the same order.
class SealModel {
public:
    /// Length from nose to tail.
    static constexpr double LENGTH = 11.0;
    /// Width across the chest.
    static constexpr double WIDTH = 3.6;

    /// Where the body is. Angles in degrees, lengths in model units.
    struct Pose {
        double headLift = 0.0;   // raises the head and neck
        double headTurn = 0.0;   // turns the head sideways
        double wave = 0.0;       // phase of the body's travelling wave (radians)
        double waveHeight = 0.0; // height of that wave
        double tailLift = 0.0;   // raises the hind flippers
        double foreFlippers = 0.0; // swing of the fore flippers, forward positive
        double curl = 0.0;       // bends the body sideways (a sleeping curl)
    };

    SealModel() = delete;

    /// The model in `pose`, coloured as in the rest pose.
    static mesh::MeshData build(const Pose& pose);
    /// Idle loop (played forward, looping): the head rises, looks about, the tail flicks.
    static std::vector<Pose> idleLoop(int frames);
    /// Walking loop (played forward, looping): the body humps forward in a wave.
    static std::vector<Pose> walkLoop(int frames);
    /// Head down, body curled: the night pose.
    static Pose sleeping();
};

} // namespace tools::assetgen::nivalis
