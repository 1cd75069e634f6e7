#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "engine/math/Vec4.h"

namespace scenes::nivalis {

/// The colours and switches of one time of day. `birds` and `drawBirds` are kept in the record
/// although the scene draws its birds in one constant colour whenever it is light.
class SceneColors {
public:
    /// False at night: stars on, birds, ships and live animals off, sleeping animals on.
    bool isDay = false;
    /// True at sunrise and sunset: the low sun replaces the high one.
    bool isLowSun = false;
    /// Stored, not consulted: birds follow `isDay`.
    bool drawBirds = false;
    /// Stored, not consulted: birds have one colour at every time of day.
    engine::math::Vec4 birds;
    /// Colour of the cloud deck.
    engine::math::Vec4 clouds;
    /// Colour of the star field.
    engine::math::Vec4 stars;
    /// Water colour near the camera.
    engine::math::Vec4 waterColorNear;
    /// Water colour towards the horizon.
    engine::math::Vec4 waterColorFar;
    /// Fog colour of the distant mountains.
    engine::math::Vec4 distantZFogColor;

    SceneColors() = default;
    /// A record of all nine fields, in declared order.
    SceneColors(bool isDay, bool isLowSun, bool drawBirds, const engine::math::Vec4& birds,
                const engine::math::Vec4& clouds, const engine::math::Vec4& stars,
                const engine::math::Vec4& waterColorNear, const engine::math::Vec4& waterColorFar,
                const engine::math::Vec4& distantZFogColor);

    /// Equality of all nine fields.
    bool operator==(const SceneColors&) const = default;
    /// Hash over all nine fields, consistent with equality.
    std::size_t hash() const;
    /// "SceneColors(isDay=true, isLowSun=false, drawBirds=true, birds=Vec4(...), ...,
    /// distantZFogColor=Vec4(...))".
    std::string toString() const;
};

} // namespace scenes::nivalis

template <> struct std::hash<scenes::nivalis::SceneColors> {
    std::size_t operator()(const scenes::nivalis::SceneColors& value) const { return value.hash(); }
};
