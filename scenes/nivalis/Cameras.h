#pragma once

#include <memory>
#include <vector>

#include "engine/camera/CameraPositionPair.h"

namespace scenes::nivalis {

/// The nine camera paths, built once on first use. Each pose's `rotation` is the point looked at.
/// Paths 0, 1, 7 and 8 look at height 886.872, paths 2 to 5 at 156.916, path 6 high above the sea.
class Cameras {
public:
    /// The paths, in the order that nextCamera walks them.
    std::vector<std::shared_ptr<engine::camera::CameraPositionPair>> CAMERAS;

    /// The one instance.
    static const Cameras& shared();

private:
    Cameras();
};

} // namespace scenes::nivalis
