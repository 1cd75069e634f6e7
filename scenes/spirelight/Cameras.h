#pragma once

#include <memory>
#include <vector>

#include "engine/camera/CameraPositionPair.h"
#include "scenes/common/CameraTable.h"

namespace scenes::spirelight {

/// The type of the scene's camera table.
using CameraPaths = std::vector<std::shared_ptr<engine::camera::CameraPositionPair>>;

/// The night city's five camera paths, built once on first use; each pose's `rotation` is the
/// point looked at.
/// The paths, in the order that nextCamera walks them.
class Cameras : public common::CameraTable<Cameras, CameraPaths> {
private:
    friend class common::CameraTable<Cameras, CameraPaths>;
    Cameras();
};

} // namespace scenes::spirelight
