#pragma once

#include <array>
#include <memory>
#include <vector>

#include "engine/camera/CameraPositionPair.h"
#include "scenes/common/CameraTable.h"

namespace scenes::betonia {

/// The type of the scene's camera table.
using CameraPaths = std::array<std::vector<std::shared_ptr<engine::camera::CameraPositionPair>>, 2>;

/// The hand-placed camera paths of both rooms, built once on first use; each pose's `rotation`
/// is the point looked at.
/// Element 0: the four paths of room 1; element 1: the nine paths of room 2.
class Cameras : public common::CameraTable<Cameras, CameraPaths> {
private:
    friend class common::CameraTable<Cameras, CameraPaths>;
    Cameras();
};

} // namespace scenes::betonia
