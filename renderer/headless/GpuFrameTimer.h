#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "renderer/gl/Gl.h"

namespace renderer::headless {

/// The GPU time of each frame, measured with GL_TIME_ELAPSED queries without waiting for the GPU
/// after every frame: the queries form a ring, and each is read back only when its slot comes
/// round again, `depth` - 1 frames later, by when the GPU has long finished that frame. Needs a
/// current OpenGL 3.3 context for its whole life; one frame is measured at a time.
class GpuFrameTimer {
public:
    /// A ring of `depth` queries (at least 2).
    explicit GpuFrameTimer(gl::Gl& gl, int depth = 4);
    /// Deletes the queries; results not yet read are lost.
    ~GpuFrameTimer();
    GpuFrameTimer(const GpuFrameTimer&) = delete;
    GpuFrameTimer& operator=(const GpuFrameTimer&) = delete;

    /// Starts measuring a frame, after reading the result that the slot it takes still holds.
    void begin();
    /// Ends the frame begun last.
    void end();
    /// Reads every result still outstanding (waiting for the GPU), so that `nanoseconds` holds
    /// every frame measured.
    void finish();
    /// GPU nanoseconds of the frames read back so far, in the order they were drawn.
    const std::vector<std::uint64_t>& nanoseconds() const { return nanoseconds_; }

private:
    void read(std::size_t slot);

    gl::Gl& gl_;
    std::vector<GLuint> queries_;
    std::vector<bool> pending_;
    std::size_t next_ = 0;
    std::vector<std::uint64_t> nanoseconds_;
};

} // namespace renderer::headless
