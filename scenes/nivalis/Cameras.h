#pragma once

#include <memory>
#include <vector>

#include "engine/camera/CameraPositionPair.h"
#include "scenes/common/CameraTable.h"

namespace scenes::nivalis {

/// The type of the scene's camera table.
using CameraPaths = std::vector<std::shared_ptr<engine::camera::CameraPositionPair>>;

/// The nine camera paths, built once on first use. Each pose's `rotation` is the point looked at.
/// Paths 0, 1, 7 and 8 look at height 886.872, paths 2 to 5 at 156.916, path 6 high above the sea.
/// The paths, in the order that nextCamera walks them.
class Cameras : public common::CameraTable<Cameras, CameraPaths> {
private:
    friend class common::CameraTable<Cameras, CameraPaths>;
    Cameras();
};

} // namespace scenes::nivalis
