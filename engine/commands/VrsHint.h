#pragma once

#include <memory>

#include "engine/commands/Hint.h"
#include "engine/commands/ShadingRate.h"

namespace engine::commands {

/// A wish for a variable shading rate: the coarsest rate at which the draw still looks right.
class VrsHint : public Hint {
public:
    /// The wished rate.
    ShadingRate shadingRate;

    /// A hint for `shadingRate`.
    explicit VrsHint(ShadingRate shadingRate) : shadingRate(shadingRate) {}
};

// The shared hints, one per rate, for scenes to put into their hint lists. Header-level shared
// objects built during static initialisation; nothing writes into them.

/// Full rate: no coarse shading.
inline const std::shared_ptr<VrsHint> HINT_VRS_NONE = std::make_shared<VrsHint>(ShadingRate::SHADING_RATE_1X1);
/// One fragment per 1x2 pixels.
inline const std::shared_ptr<VrsHint> HINT_VRS_1X2 = std::make_shared<VrsHint>(ShadingRate::SHADING_RATE_1X2);
/// One fragment per 2x1 pixels.
inline const std::shared_ptr<VrsHint> HINT_VRS_2X1 = std::make_shared<VrsHint>(ShadingRate::SHADING_RATE_2X1);
/// One fragment per 2x2 pixels.
inline const std::shared_ptr<VrsHint> HINT_VRS_2X2 = std::make_shared<VrsHint>(ShadingRate::SHADING_RATE_2X2);
/// One fragment per 4x2 pixels.
inline const std::shared_ptr<VrsHint> HINT_VRS_4X2 = std::make_shared<VrsHint>(ShadingRate::SHADING_RATE_4X2);
/// One fragment per 4x4 pixels.
inline const std::shared_ptr<VrsHint> HINT_VRS_4X4 = std::make_shared<VrsHint>(ShadingRate::SHADING_RATE_4X4);

} // namespace engine::commands
