#include "renderer/headless/GpuFrameTimer.h"

#include <gtest/gtest.h>

#include "tests/renderer/support/RecordingGl.h"

namespace renderer::headless {
namespace {

using test::GlCall;

// Each frame's query is read exactly once, in the order the frames were drawn, never while it
// runs, and not before `depth` - 1 later frames have begun (so that reading does not wait).
TEST(GpuFrameTimerTest, ReadsEachFrameOnceInOrderAndOnlyWhenItsSlotComesRound) {
    for (const auto& [depth, frames] : {std::pair{2, 1}, {2, 5}, {3, 2}, {4, 4}, {4, 9}}) {
        SCOPED_TRACE(testing::Message() << "depth " << depth << ", frames " << frames);
        test::RecordingGl gl;
        GpuFrameTimer timer(gl, depth);
        std::vector<double> begun;
        std::vector<double> read;
        for (int frame = 0; frame < frames; ++frame) {
            gl.clearCalls();
            timer.begin();
            timer.end();
            for (const auto& call : gl.calls) {
                if (call.kind == GlCall::timeQueryResult) {
                    read.push_back(call.args[0]);
                    // The frame read now began `depth` frames ago.
                    EXPECT_EQ(read.size() - 1, static_cast<std::size_t>(frame - depth));
                } else if (call.kind == GlCall::beginTimeQuery) {
                    begun.push_back(call.args[0]);
                }
            }
        }
        gl.clearCalls();
        timer.finish();
        for (const auto& call : gl.calls) {
            read.push_back(call.args[0]);
        }
        EXPECT_EQ(read, begun);
        EXPECT_EQ(timer.nanoseconds().size(), static_cast<std::size_t>(frames));
    }
}

} // namespace
} // namespace renderer::headless
