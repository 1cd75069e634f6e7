#pragma once

#include <memory>
#include <vector>

#include "engine/camera/CameraPositionPair.h"

namespace scenes::spirelight {

/// The night city's five camera paths, built once on first use; each pose's `rotation` is the
/// point looked at.
class Cameras {
public:
    /// The paths, in the order that nextCamera walks them.
    std::vector<std::shared_ptr<engine::camera::CameraPositionPair>> CAMERAS;

    /// The one instance.
    static const Cameras& shared();

private:
    Cameras();
};

} // namespace scenes::spirelight
