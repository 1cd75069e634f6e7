#pragma once

namespace scenes::common {

/// The shape of every scene's camera table: the scene's paths in `CAMERAS`, built once, on first
/// use of `shared()`, by the constructor of the scene's own `Cameras` class (which derives from
/// this with itself as `Self`). Each pose's `rotation` is the point looked at.
template <typename Self, typename Paths> class CameraTable {
public:
    /// The paths, in the order that the scene's camera animator walks them.
    Paths CAMERAS;

    /// The one instance.
    static const Self& shared() {
        static const Self instance;
        return instance;
    }
};

} // namespace scenes::common
