#pragma once

#include <array>
#include <memory>
#include <vector>

#include "engine/camera/CameraPositionPair.h"

namespace scenes::betonia {

/// The hand-placed camera paths of both rooms, built once on first use; each pose's `rotation`
/// is the point looked at.
class Cameras {
public:
    /// Element 0: the four paths of room 1; element 1: the nine paths of room 2.
    std::array<std::vector<std::shared_ptr<engine::camera::CameraPositionPair>>, 2> CAMERAS;

    /// The one instance.
    static const Cameras& shared();

private:
    Cameras();
};

} // namespace scenes::betonia
