#pragma once

#include <memory>
#include <vector>

#include "scenes/example/InteractiveCameraPositionPair.h"
#include "scenes/common/CameraTable.h"

namespace scenes::example {

/// The type of the scene's camera table.
using CameraPaths = std::vector<std::shared_ptr<InteractiveCameraPositionPair>>;

/// The sample scene's seven camera paths, built once on first use; each pose's `rotation` is the
/// point looked at.
/// The paths, with an empty name each; paths 1 to 5 are marked interactive.
class Cameras : public common::CameraTable<Cameras, CameraPaths> {
private:
    friend class common::CameraTable<Cameras, CameraPaths>;
    Cameras();
};

} // namespace scenes::example
