#include "renderer/headless/GpuFrameTimer.h"

#include <algorithm>

namespace renderer::headless {

GpuFrameTimer::GpuFrameTimer(gl::Gl& gl, int depth) : gl_(gl) {
    const auto slots = static_cast<std::size_t>(std::max(2, depth));
    for (std::size_t i = 0; i < slots; ++i) {
        queries_.push_back(gl_.createQuery());
    }
    pending_.assign(slots, false);
}

GpuFrameTimer::~GpuFrameTimer() {
    for (GLuint query : queries_) {
        gl_.deleteQuery(query);
    }
}

void GpuFrameTimer::read(std::size_t slot) {
    if (pending_[slot]) {
        nanoseconds_.push_back(gl_.timeQueryResult(queries_[slot]));
        pending_[slot] = false;
    }
}

void GpuFrameTimer::begin() {
    read(next_);
    gl_.beginTimeQuery(queries_[next_]);
    pending_[next_] = true;
}

void GpuFrameTimer::end() {
    gl_.endTimeQuery();
    next_ = (next_ + 1) % queries_.size();
}

void GpuFrameTimer::finish() {
    // The oldest outstanding frame sits in the slot that would be taken next.
    for (std::size_t i = 0; i < queries_.size(); ++i) {
        read((next_ + i) % queries_.size());
    }
}

} // namespace renderer::headless
