// Counts heap allocations while frames are drawn. The global allocation functions of this test
// program are replaced to count when asked; counting is off everywhere else.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "renderer/NivalisRenderer.h"
#include "scenes/nivalis/NivalisScene.h"
#include "tests/renderer/support/NullGl.h"
#include "tests/renderer/support/RendererHarness.h"
#include "tests/renderer/support/SceneAssets.h"

namespace {

std::atomic<bool> counting{false};
std::atomic<long> allocations{0};

void* allocate(std::size_t size) {
    if (counting.load(std::memory_order_relaxed)) {
        allocations.fetch_add(1, std::memory_order_relaxed);
    }
    if (void* pointer = std::malloc(size == 0 ? 1 : size)) {
        return pointer;
    }
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* pointer) noexcept { std::free(pointer); }
void operator delete[](void* pointer) noexcept { std::free(pointer); }
void operator delete(void* pointer, std::size_t) noexcept { std::free(pointer); }
void operator delete[](void* pointer, std::size_t) noexcept { std::free(pointer); }

namespace renderer {
namespace {

long allocationsDuring(const std::function<void()>& work) {
    allocations = 0;
    counting = true;
    work();
    counting = false;
    return allocations.load();
}

TEST(FrameAllocationTest, FramesAfterTheFirstAllocateNothing) {
    test::TestResources resources;
    auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
    test::SceneAssets::write(*scene, resources, "nivalis");
    test::NullGl gl;
    double seconds = 10.0;
    SceneRenderer::Options options;
    options.resources = resources.path();
    options.clock = [&seconds] { return seconds; };
    options.astcDecoding = AstcTexture::Decoding::GPU;
    NivalisRenderer renderer(gl, scene, "nivalis", options, "day");
    const FrameTarget target{0, 640, 360};

    for (bool blurred : {false, true}) {
        scene->settings.blurred = blurred;
        // Pipelines, chains and quads are made in the first frame of each tree.
        EXPECT_GT(allocationsDuring([&] { renderer.drawFrame(target); }), 0);
        const long counted = allocationsDuring([&] {
            for (int frame = 0; frame < 60; ++frame) {
                seconds += 1.0 / 30.0;
                renderer.drawFrame(target);
            }
        });
        EXPECT_EQ(counted, 0) << (blurred ? "blurred tree" : "sharp tree");
    }
}

} // namespace
} // namespace renderer
