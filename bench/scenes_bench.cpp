// One frame of each scene (timers, camera, settings, animation, matrix walk), in nanoseconds per
// frame, beside a floor of the same number of bare model-view-projection computations, and the
// heap allocations per frame counted by the replaced operator new (zero is expected after the first
// frame).
//
// Counters of each scene benchmark:
//   draws        matrices the frame computes (transformed and static draws it walks, plus the
//                Example scene's two hand-placed draws)
//   frame_ns     CPU nanoseconds of one frame
//   floor_ns     CPU nanoseconds of that many Scene::calculateMVPMatrix calls
//   ratio        frame time over floor time
//   allocs/frame heap allocations per frame

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "bench/ThreadCpuTime.h"
#include "engine/Scene.h"
#include "engine/commands/DrawTransformedMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/math/Random.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "tests/support/AllocationCounter.h"

namespace {

using bench::threadNanoseconds;
using tests::support::allocationCount;

constexpr double kFrame = 1000.0 / 60.0;

/// Transformed and static draws below enabled nodes: the matrices one walk computes.
int matrixDraws(const engine::Scene::CommandList& commands) {
    int count = 0;
    for (const auto& node : commands) {
        if (!node || !node->enabled) {
            continue;
        }
        if (auto group = std::dynamic_pointer_cast<engine::commands::GroupCommand>(node)) {
            count += matrixDraws(group->commands);
        } else if (std::dynamic_pointer_cast<engine::commands::DrawTransformedMeshCommand>(node)) {
            ++count;
        }
    }
    return count;
}

/// A scene with nothing but the base class: the bare matrix arithmetic of `draws` objects.
class FloorScene : public engine::Scene {
public:
    explicit FloorScene(int draws) {
        FOV_LANDSCAPE = 50.0f;
        FOV_PORTRAIT = 75.0f;
        Z_NEAR = 20.0f;
        Z_FAR = 115000.0f;
        calculateProjection(1.0f, 1920, 1080);
        matView = {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 100, -200, -5000, 1};
        for (int i = 0; i < draws; ++i) {
            const auto f = static_cast<float>(i);
            inputs.push_back({f * 100.0f, -f * 50.0f, f, 0.0f, 0.0f, f * 7.0f, 1.0f + f * 0.01f});
        }
    }

    void frame() {
        for (const Input& in : inputs) {
            calculateMVPMatrix(in.x, in.y, in.z, in.rx, in.ry, in.rz, in.s, in.s, in.s);
            benchmark::DoNotOptimize(matMVP.data());
        }
        benchmark::ClobberMemory();
    }

private:
    struct Input {
        float x, y, z, rx, ry, rz, s;
    };
    std::vector<Input> inputs;
};

/// Nanoseconds of one floor frame of `draws` matrices.
double floorNanoseconds(int draws) {
    FloorScene floor(draws);
    constexpr int kRounds = 20000;
    for (int i = 0; i < 100; ++i) {
        floor.frame();
    }
    const double start = threadNanoseconds();
    for (int i = 0; i < kRounds; ++i) {
        floor.frame();
    }
    return (threadNanoseconds() - start) / kRounds;
}

template <typename SceneT> void sceneFrame(benchmark::State& state, int extraDraws) {
    engine::math::Random::seed(42);
    SceneT scene;
    scene.updateViewportSize(1920, 1080);
    double time = 10000.0;
    scene.updateTimers(time);
    scene.updateTimers(time += kFrame);
    const int draws = matrixDraws(scene.commands) + extraDraws;

    const std::size_t allocationsBefore = allocationCount();
    const double start = threadNanoseconds();
    for (auto _ : state) {
        scene.updateTimers(time += kFrame);
        benchmark::ClobberMemory();
    }
    const double elapsed = threadNanoseconds() - start;
    const std::size_t allocated = allocationCount() - allocationsBefore;

    const double frames = static_cast<double>(state.iterations());
    const double frameNs = elapsed / frames;
    const double floorNs = floorNanoseconds(draws);
    state.counters["draws"] = draws;
    state.counters["frame_ns"] = frameNs;
    state.counters["floor_ns"] = floorNs;
    state.counters["ratio"] = frameNs / floorNs;
    state.counters["allocs/frame"] = static_cast<double>(allocated) / frames;
}

void BM_NivalisFrame(benchmark::State& state) { sceneFrame<scenes::nivalis::NivalisScene>(state, 0); }
void BM_SpirelightFrame(benchmark::State& state) { sceneFrame<scenes::spirelight::SpirelightScene>(state, 0); }
void BM_BetoniaFrame(benchmark::State& state) { sceneFrame<scenes::betonia::BetoniaScene>(state, 0); }
// The Example scene places its animal and its test model by hand, outside the walk.
void BM_ExampleFrame(benchmark::State& state) { sceneFrame<scenes::example::ExampleScene>(state, 2); }

void BM_MatrixFloor(benchmark::State& state) {
    FloorScene floor(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        floor.frame();
    }
    state.counters["draws"] = static_cast<double>(state.range(0));
}

BENCHMARK(BM_NivalisFrame);
BENCHMARK(BM_SpirelightFrame);
BENCHMARK(BM_BetoniaFrame);
BENCHMARK(BM_ExampleFrame);
BENCHMARK(BM_MatrixFloor)->Arg(1)->Arg(41);

} // namespace

BENCHMARK_MAIN();
