#pragma once

#include <vector>

#include "tools/assetgen/mesh/MeshData.h"

namespace tools::assetgen::nivalis {

/// A low-poly penguin standing at the origin on its feet, facing -Y, about 60 units tall.
/// Every pose has the same vertices in the same order (only their places change), so that the
/// poses of an animation can be stored per vertex; each face keeps the colour of the rest pose.
class PenguinModel {
public:
    /// Height of the model from its feet to the top of its head.
    static constexpr double HEIGHT = 60.0;
    /// Radius of the ground the feet stand on.
    static constexpr double FOOT_RADIUS = 13.0;

    /// How finely the body is cut: the first idle penguin has the larger vertex budget.
    enum class Detail { FINE, COARSE };

    /// Where the movable parts are. Angles in degrees.
    struct Pose {
        double headYaw = 0.0;   // turn of the head, positive to the penguin's left
        double headPitch = 0.0; // nod, positive lifts the beak
        double bodyLean = 0.0;  // forward lean of the whole body
        double leftFlipper = 8.0;  // lift of each flipper away from the body
        double rightFlipper = 8.0;
        double squash = 1.0; // height factor (a sleeping penguin settles)
    };

    PenguinModel() = delete;

    /// The model in `pose`, coloured as in the rest pose.
    static mesh::MeshData build(Detail detail, const Pose& pose);
    /// Poses of the first idle loop, played forward and back: a look to each side, a flap.
    static std::vector<Pose> idleLoop(int frames);
    /// Poses of the second idle loop: a bow to preen, then upright with a stretch.
    static std::vector<Pose> preenLoop(int frames);
    /// Head tucked, body settled: the night pose.
    static Pose sleeping();
};

} // namespace tools::assetgen::nivalis
