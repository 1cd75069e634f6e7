// One frame of the engine's side of drawing: a synthetic scene shaped like the real ones
// (~56 matrix draws in shared groups, timers, a camera animator, settings re-applied, uniforms
// rewritten, the matrix walk over the tree). Beside it, as a floor, the bare matrix arithmetic
// for the same draws without tree, casts, timers or uniform writes.
//
// Counters: allocs_per_frame (heap allocations, counted through the replaced operator new) and
// ratio_to_floor (frame CPU time over the floor's, both measured in the same run).

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <vector>

#include "bench/ThreadCpuTime.h"
#include "engine/commands/DrawStaticMeshCommand.h"
#include "engine/math/Matrix.h"
#include "bench/SyntheticScene.h"
#include "tests/support/AllocationCounter.h"

namespace {

using bench::threadNanoseconds;
using engine::math::Matrix;
using engine::testing::SyntheticScene;
using tests::support::allocationCount;

constexpr double FRAME_MS = 1000.0 / 60.0;

// Nanoseconds per iteration of the floor, as measured by the floor benchmark of this run.
double floorNanoseconds = 0.0;

// The transforms of the draws that the walk of one frame turns into matrices, in walk order:
// static draws carry a fixed matrix and need only the two products.
struct FloorDraw {
    const engine::commands::AffineTranformation* transform = nullptr;
    const std::array<float, 16>* fixedModel = nullptr;
    int matrices = 1;
};

void collect(const engine::Scene::CommandList& list, std::vector<FloorDraw>& out) {
    for (const auto& node : list) {
        if (!node || !node->enabled) {
            continue;
        }
        if (auto* group = dynamic_cast<engine::commands::GroupCommand*>(node.get())) {
            collect(group->commands, out);
        } else if (auto* fixed = dynamic_cast<engine::commands::DrawStaticMeshCommand*>(node.get())) {
            out.push_back({nullptr, &fixed->modelMatrix, 4});
        } else if (auto* draw = dynamic_cast<engine::commands::DrawTransformedMeshCommand*>(node.get())) {
            out.push_back({&draw->transform, nullptr, draw->indexUniformModel >= 0 ? 2 : 1});
        }
    }
}

void warmUp(SyntheticScene& scene, double& now) {
    for (int i = 0; i < 3; ++i) {
        scene.updateTimers(now);
        now += FRAME_MS;
    }
}

void BM_MatrixFloor(benchmark::State& state) {
    SyntheticScene scene;
    double now = 100000.0;
    warmUp(scene, now);
    std::vector<FloorDraw> draws;
    collect(scene.commands, draws);
    std::array<float, 16> model{};
    std::array<float, 16> mvp{};
    std::vector<std::array<float, 16>> out(draws.size() * 4);

    const double start = threadNanoseconds();
    for (auto _ : state) {
        std::size_t slot = 0;
        for (const FloorDraw& draw : draws) {
            if (draw.fixedModel != nullptr) {
                Matrix::multiplyMM(mvp, 0, scene.matView, 0, *draw.fixedModel, 0);
                Matrix::multiplyMM(mvp, 0, scene.matProjection, 0, mvp, 0);
                model = *draw.fixedModel;
            } else {
                const auto& t = *draw.transform;
                Matrix::setIdentityM(model, 0);
                Matrix::translateM(model, 0, t.translation.x, t.translation.y, t.translation.z);
                Matrix::rotateM(model, 0, t.rotation.x, 1.0f, 0.0f, 0.0f);
                Matrix::rotateM(model, 0, t.rotation.y, 0.0f, 1.0f, 0.0f);
                Matrix::rotateM(model, 0, t.rotation.z, 0.0f, 0.0f, 1.0f);
                Matrix::scaleM(model, 0, t.scale.x, t.scale.y, t.scale.z);
                Matrix::multiplyMM(mvp, 0, scene.matView, 0, model, 0);
                Matrix::multiplyMM(mvp, 0, scene.matProjection, 0, mvp, 0);
            }
            // The stores the walk makes: MVP, and model/view/projection where asked for.
            out[slot++] = mvp;
            if (draw.matrices > 1) {
                out[slot++] = model;
            }
            if (draw.matrices > 2) {
                out[slot++] = scene.matView;
                out[slot++] = scene.matProjection;
            }
        }
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    const double elapsed = threadNanoseconds() - start;
    floorNanoseconds = elapsed / static_cast<double>(state.iterations());
    state.counters["draws"] = static_cast<double>(draws.size());
}

void BM_SceneFrame(benchmark::State& state) {
    SyntheticScene scene;
    scene.backendMode = engine::BackendMode::METAL;
    double now = 100000.0;
    warmUp(scene, now);

    const std::size_t allocationsBefore = allocationCount();
    const double start = threadNanoseconds();
    for (auto _ : state) {
        scene.updateTimers(now);
        now += FRAME_MS;
        benchmark::DoNotOptimize(scene.matMVP.data());
        benchmark::ClobberMemory();
    }
    const double elapsed = threadNanoseconds() - start;
    const auto frames = static_cast<double>(state.iterations());
    const std::size_t allocated = allocationCount() - allocationsBefore;

    state.counters["allocs_per_frame"] = static_cast<double>(allocated) / frames;
    if (floorNanoseconds > 0.0) {
        state.counters["ratio_to_floor"] = elapsed / frames / floorNanoseconds;
    }
}

// Just the matrix walk, for telling the walk's own cost from the rest of the frame.
void BM_MatrixWalk(benchmark::State& state) {
    SyntheticScene scene;
    double now = 100000.0;
    warmUp(scene, now);
    for (auto _ : state) {
        scene.updateMeshTransformations(scene.commands);
        benchmark::ClobberMemory();
    }
}

} // namespace

// The floor runs first so that the frame can report its ratio to it.
BENCHMARK(BM_MatrixFloor);
BENCHMARK(BM_SceneFrame);
BENCHMARK(BM_MatrixWalk);

BENCHMARK_MAIN();
