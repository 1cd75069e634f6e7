#pragma once

#include "engine/camera/Spline.h"
#include "engine/math/Vec3.h"

#include <vector>

namespace engine::camera {

/// A path in space: three splines, one per coordinate, answering the position and the heading
/// of a moving object for a path parameter from 0 to 1. The results are written into two
/// member vectors that every call reuses, so that scenes can move objects each frame without
/// allocating: copy the numbers out before the next call of the same kind.
class Spline3D {
public:
    /// Spline of the x coordinate.
    Spline splineX;
    /// Spline of the y coordinate.
    Spline splineY;
    /// Spline of the z coordinate.
    Spline splineZ;
    /// Result of getCurrentPoint (and of the position step of the rotation queries).
    engine::math::Vec3 position;
    /// Result of getRotation and getRotationLegacy.
    engine::math::Vec3 rotation;

    /// As Spline3D(true, x, y, z).
    Spline3D(std::vector<double> x, std::vector<double> y, std::vector<double> z);
    /// Builds the three splines; the arrays need not have the same length.
    Spline3D(bool bPrepareEnds, std::vector<double> x, std::vector<double> y, std::vector<double> z);

    /// `position` = the three splines at `m`, rounded to floats.
    const engine::math::Vec3& getCurrentPoint(double m);

    /// Heading in degrees at `a`, towards the point 0.0001 further on (wrapping past 1 onto
    /// the start of a closed path): x = atan2(dz, dy), y = atan2(dz, dx), z = atan2(dx, dy) of
    /// the difference here - ahead. Also leaves the point at `a` in `position`.
    const engine::math::Vec3& getRotation(double a);

    /// The older heading, kept for the paths that were made for it: past the end it looks at
    /// the parameter 0 instead of wrapping, and z = atan2(dy, dx).
    const engine::math::Vec3& getRotationLegacy(double a);
};

} // namespace engine::camera
