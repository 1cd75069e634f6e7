#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace engine {

/// Whether a draw tests against and writes to the depth buffer. Draw states refer to one of the
/// four shared objects below (or a record of their own) through a shared pointer.
class DepthMode {
public:
    /// Fragments behind what is already drawn are discarded.
    bool depthTest = false;
    /// The draw's depth is stored.
    bool depthWrite = false;

    /// Creates a depth mode with the two flags.
    constexpr DepthMode(bool depthTest_, bool depthWrite_) : depthTest(depthTest_), depthWrite(depthWrite_) {}

    /// Equality of both flags.
    bool operator==(const DepthMode&) const = default;
    /// Hash over both flags, consistent with equality.
    std::size_t hash() const;
    /// "DepthMode(depthTest=true, depthWrite=false)".
    std::string toString() const;
};

// The shared depth modes. Like BLENDING_NONE they are header-level shared objects, built during
// static initialisation and never written; draw states compare and cache them by identity.

/// Neither test nor write.
inline const std::shared_ptr<DepthMode> DEPTH_NONE = std::make_shared<DepthMode>(false, false);
/// Test and write: ordinary opaque geometry.
inline const std::shared_ptr<DepthMode> DEPTH_TEST_ENABLED = std::make_shared<DepthMode>(true, true);
/// Test without writing: transparent geometry over opaque.
inline const std::shared_ptr<DepthMode> DEPTH_NO_WRITE = std::make_shared<DepthMode>(true, false);
/// Write without testing.
inline const std::shared_ptr<DepthMode> DEPTH_NO_READ = std::make_shared<DepthMode>(false, true);

} // namespace engine

template <> struct std::hash<engine::DepthMode> {
    std::size_t operator()(const engine::DepthMode& value) const { return value.hash(); }
};
