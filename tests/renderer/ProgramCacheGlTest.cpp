// The program binary cache on a real driver: whatever state the cache folder is in (empty, warm,
// damaged, cut short, written for another driver, not a folder at all), the scene draws the same
// picture as without a cache, a good file is loaded as it stands and a bad one is written anew.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "renderer/scenes/SceneFactory.h"

namespace renderer {
namespace {

namespace fs = std::filesystem;

constexpr int W = 160;
constexpr int H = 90;

/// The inode of each file of `dir` by name: a file replaced by a rename has a new one.
std::map<std::string, ino_t> inodes(const fs::path& dir) {
    std::map<std::string, ino_t> result;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(dir, error)) {
        struct stat info {};
        if (::stat(entry.path().c_str(), &info) == 0) {
            result[entry.path().filename().string()] = info.st_ino;
        }
    }
    return result;
}

/// Rewrites every file of `dir` through `change`, in place (same inode).
void changeEach(const fs::path& dir, const std::function<void(std::string&)>& change) {
    for (const auto& [name, inode] : inodes(dir)) {
        std::ifstream in(dir / name, std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        in.close();
        change(bytes);
        std::fstream out(dir / name, std::ios::binary | std::ios::in | std::ios::out);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.close();
        fs::resize_file(dir / name, bytes.size());
    }
}

class ProgramCacheGlTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (gl.programBinaryFormats() <= 0) {
            GTEST_SKIP() << "the driver hands out no program binaries";
        }
        fs::remove_all(root);
    }
    void TearDown() override { fs::remove_all(root); }

    /// One frame of the Nivalis scene at a fixed time, drawn with the cache in `cache`.
    std::vector<std::uint8_t> draw(const fs::path& cache) {
        SceneRenderer::Options options;
        options.resources = NIVALIS_RESOURCES_DIR;
        options.clock = [] { return 61.0; };
        options.programCache = cache;
        auto scene = scenes::SceneFactory::makeScene("nivalis");
        auto renderer = scenes::SceneFactory::makeRenderer(gl, "nivalis", scene, options, "day");
        headless::OffscreenTarget target(W, H);
        target.clear(0.0f, 0.0f, 0.0f, 0.0f);
        renderer->drawFrame({target.framebuffer(), static_cast<double>(W), static_cast<double>(H)});
        return target.readPixels();
    }

    headless::HeadlessContext context;
    gl::EpoxyGl gl;
    fs::path root = fs::temp_directory_path() / ("nivalis-program-cache-test-" + std::to_string(::getpid()));
};

TEST_F(ProgramCacheGlTest, AnyStateOfTheCacheDrawsTheSamePictureAndEndsGood) {
    const auto reference = draw({});
    const fs::path warm = root / "warm";
    ASSERT_EQ(draw(warm), reference) << "cold cache";
    const auto written = inodes(warm);
    ASSERT_FALSE(written.empty()) << "no program was stored";

    struct Case {
        const char* name;
        std::function<void(const fs::path&)> spoil;
        bool rewritten;
    };
    const Case cases[] = {
        {"warm", [](const fs::path&) {}, false},
        {"damaged binary",
         [](const fs::path& dir) { changeEach(dir, [](std::string& b) { b[b.size() / 2 + 40] ^= 0x5a; }); }, true},
        {"cut short", [](const fs::path& dir) { changeEach(dir, [](std::string& b) { b.resize(b.size() / 2); }); },
         true},
        {"another driver",
         [](const fs::path& dir) { changeEach(dir, [](std::string& b) { b.replace(b.find('\n') + 1, 3, "Old"); }); },
         true},
        {"header only", [](const fs::path& dir) { changeEach(dir, [](std::string& b) { b.resize(b.find('\n')); }); },
         true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const fs::path dir = root / (std::string("case ") + c.name);
        fs::copy(warm, dir);
        c.spoil(dir);
        const auto before = inodes(dir);
        EXPECT_EQ(draw(dir), reference);
        const auto after = inodes(dir);
        ASSERT_EQ(after.size(), written.size()) << "a file too many or too few";
        for (const auto& [name, inode] : before) {
            EXPECT_EQ(after.at(name) != inode, c.rewritten) << name;
        }
        if (c.rewritten) {
            // What was written anew loads as it stands on the next start.
            const auto rewritten = inodes(dir);
            EXPECT_EQ(draw(dir), reference);
            EXPECT_EQ(inodes(dir), rewritten);
        }
    }

    // A cache folder that cannot be made only costs the compiling.
    std::ofstream(root / "file").put('x');
    EXPECT_EQ(draw(root / "file" / "nivalis"), reference);
}

} // namespace
} // namespace renderer
