// Counts every heap allocation of the process by replacing the global operator new, and checks
// that a scene's frame (timers, camera, animate, matrix walk) makes none once the first frame
// has run.

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "tests/engine/allocation/SyntheticScene.h"

namespace {

std::atomic<std::size_t> allocations{0};

void* allocate(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size == 0 ? 1 : size)) {
        return p;
    }
    throw std::bad_alloc();
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    const auto align = static_cast<std::size_t>(alignment);
    const std::size_t rounded = (size + align - 1) / align * align;
    if (void* p = std::aligned_alloc(align, rounded == 0 ? align : rounded)) {
        return p;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (...) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return allocate(size);
    } catch (...) {
        return nullptr;
    }
}
void* operator new(std::size_t size, std::align_val_t alignment) { return allocateAligned(size, alignment); }
void* operator new[](std::size_t size, std::align_val_t alignment) { return allocateAligned(size, alignment); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::align_val_t) noexcept { std::free(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { std::free(p); }

namespace {

using engine::testing::SyntheticScene;

constexpr double FRAME_MS = 1000.0 / 60.0;
// The host's clock is not 0 at the first frame.
constexpr double START_MS = 123456.0;

std::size_t allocationsSoFar() { return allocations.load(std::memory_order_relaxed); }

TEST(FrameAllocationTest, CounterSeesAllocations) {
    const std::size_t before = allocationsSoFar();
    void* volatile block = ::operator new(64);
    ::operator delete(block);
    EXPECT_EQ(allocationsSoFar() - before, 1u);
}

TEST(FrameAllocationTest, FramesAfterTheFirstAllocateNothing) {
    SyntheticScene scene;
    scene.backendMode = engine::BackendMode::METAL;
    scene.initialize();
    scene.loaded = true;
    double now = START_MS;
    scene.updateTimers(now);

    // One minute at 60 frames a second: every path is ridden to its end and turned back at
    // least once, and groups and textures are toggled many times.
    const std::size_t before = allocationsSoFar();
    for (int frame = 1; frame < 3600; ++frame) {
        now += FRAME_MS;
        if (frame == 600) {
            scene.updateViewportSize(1080, 1920);
        }
        if (frame == 1200) {
            scene.lowQuality = true;
        }
        scene.updateTimers(now);
    }
    const std::size_t during = allocationsSoFar() - before;
    EXPECT_EQ(during, 0u);
    EXPECT_EQ(scene.frames, 3600);
}

TEST(FrameAllocationTest, CameraChangesBetweenFramesAllocateNothing) {
    SyntheticScene scene;
    double now = START_MS;
    scene.updateTimers(now);
    now += FRAME_MS;
    scene.updateTimers(now);

    const std::size_t before = allocationsSoFar();
    for (int frame = 0; frame < 1200; ++frame) {
        if (frame % 300 == 0) {
            scene.cameraAnimator.nextCamera();
        }
        if (frame % 300 == 150) {
            scene.cameraAnimator.changeDirection(frame % 600 == 150 ? 1.0f : -1.0f);
        }
        if (frame == 1000) {
            scene.cameraAnimator.randomCamera();
        }
        now += FRAME_MS;
        scene.updateTimers(now);
    }
    EXPECT_EQ(allocationsSoFar() - before, 0u);
}

TEST(FrameAllocationTest, FrameReallyDoesTheWork) {
    // Guards the two tests above against a frame that allocates nothing because it does
    // nothing: the walk must have written every visible matrix uniform.
    SyntheticScene scene;
    double now = START_MS;
    for (int frame = 0; frame < 3; ++frame) {
        scene.updateTimers(now);
        now += FRAME_MS;
    }
    int written = 0;
    for (const auto& group : scene.groups) {
        if (!group->enabled) {
            continue;
        }
        for (const auto& node : group->commands) {
            const auto& draw = static_cast<const engine::commands::DrawMeshCommand&>(*node);
            const auto* mvp = dynamic_cast<engine::commands::UniformFloatValue*>(draw.uniforms[0].get());
            ASSERT_NE(mvp, nullptr);
            EXPECT_NE(mvp->value[15], 0.0f) << "a perspective MVP has w depending on depth";
            ++written;
        }
    }
    EXPECT_EQ(written, (SyntheticScene::GROUPS - 1) * SyntheticScene::DRAWS_PER_GROUP);
}

} // namespace
