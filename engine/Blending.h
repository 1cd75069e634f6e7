#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "engine/BlendingEquation.h"
#include "engine/BlendingFactor.h"

namespace engine {

/// How a draw's colour is mixed with what the target already holds. A mutable record, made with
/// no arguments and then filled in; draw states refer to it through a shared pointer, and the
/// renderer tests `enabled` before anything else. Additive blending, for instance, is a new
/// Blending with `enabled` true and both colour factors ONE.
class Blending {
public:
    /// Equation of the alpha channel; counts only when `isSeparateAlpha` is true.
    BlendingEquation equationAlpha = BlendingEquation::ADD;
    /// Equation of the colour channels (and of alpha, unless `isSeparateAlpha`).
    BlendingEquation equationColor = BlendingEquation::ADD;
    /// Source factor of the alpha channel; counts only when `isSeparateAlpha` is true.
    BlendingFactor sourceFactorAlpha = BlendingFactor::ZERO;
    /// Destination factor of the alpha channel; counts only when `isSeparateAlpha` is true.
    BlendingFactor destinationFactorAlpha = BlendingFactor::ZERO;
    /// Source factor of the colour channels.
    BlendingFactor sourceFactorColor = BlendingFactor::ZERO;
    /// Destination factor of the colour channels.
    BlendingFactor destinationFactorColor = BlendingFactor::ZERO;
    /// False: the draw overwrites the target and every other field is ignored.
    bool enabled = false;
    /// True: alpha has its own equation and factors.
    bool isSeparateAlpha = false;

    /// Field-by-field equality.
    bool operator==(const Blending&) const = default;
    /// Hash over all fields, consistent with equality.
    std::size_t hash() const;
    /// "Blending(equationAlpha=ADD, equationColor=ADD, sourceFactorAlpha=ZERO, ...,
    /// enabled=false, isSeparateAlpha=false)".
    std::string toString() const;
};

/// The one shared "no blending" record (all defaults, `enabled` false): the default of
/// DrawBlurredCommand and the blending of most draw states. It is a header-level shared object
/// rather than an accessor so that scenes can name it as a value; it is built during static
/// initialisation, before any scene, and nothing may write into it.
inline const std::shared_ptr<Blending> BLENDING_NONE = std::make_shared<Blending>();

} // namespace engine

template <> struct std::hash<engine::Blending> {
    std::size_t operator()(const engine::Blending& value) const { return value.hash(); }
};
