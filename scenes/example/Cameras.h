#pragma once

#include <memory>
#include <vector>

#include "scenes/example/InteractiveCameraPositionPair.h"

namespace scenes::example {

/// The sample scene's seven camera paths, built once on first use; each pose's `rotation` is the
/// point looked at.
class Cameras {
public:
    /// The paths, with an empty name each; paths 1 to 5 are marked interactive.
    std::vector<std::shared_ptr<InteractiveCameraPositionPair>> CAMERAS;

    /// The one instance.
    static const Cameras& shared();

private:
    Cameras();
};

} // namespace scenes::example
