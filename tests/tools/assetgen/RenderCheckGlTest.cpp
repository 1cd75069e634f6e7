// The generated scenes as nivalis-render draws them: from every camera path, at its start, middle
// and end, and at every time of day, no pixel shows the clear colour (the sky and the rooms close
// the picture); the picture moves; the animals stand on the land and the ships float on the water;
// Betonia's rooms and the sample valley are closed too.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <filesystem>
#include <string>
#include <vector>

#include "renderer/headless/PngFile.h"

namespace {

namespace fs = std::filesystem;
using renderer::headless::PngFile;

struct Result {
    int status;
    std::string output;
};

Result render(const std::string& arguments, const std::string& size = "160x90") {
    const std::string command = std::string(NIVALIS_RENDER_EXECUTABLE) + " --resources " + NIVALIS_RESOURCES_DIR +
                                " --size " + size + " --at 60000 " + arguments + " 2>&1";
    Result run{-1, {}};
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) {
        return run;
    }
    char buffer[512];
    while (fgets(buffer, sizeof buffer, pipe)) {
        run.output += buffer;
    }
    run.status = pclose(pipe);
    return run;
}

class RenderCheck : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("assetgen-render-" + std::to_string(::getpid()));
        fs::create_directories(dir_);
    }
    void TearDown() override { fs::remove_all(dir_); }
    std::string out(const std::string& name) const { return (dir_ / name).string(); }

    fs::path dir_;
};

/// Pixels of the clear magenta, as it shows through, darkened or not by the vignette.
int magenta(const PngFile::Image& image) {
    int count = 0;
    for (std::size_t i = 0; i + 3 < image.pixels.size(); i += 4) {
        const int r = image.pixels[i], g = image.pixels[i + 1], b = image.pixels[i + 2];
        if (r > 90 && b > 90 && g < 40 && std::abs(r - b) < 24) {
            ++count;
        }
    }
    return count;
}

TEST_F(RenderCheck, NivalisShowsNoClearColourFromAnyPathAtAnyTimeOfDay) {
    for (int camera = 0; camera < 9; ++camera) {
        for (const char* at : {"0.02", "0.5", "0.98"}) {
            for (const char* time : {"day", "night", "sunrise", "sunset"}) {
                SCOPED_TRACE("camera " + std::to_string(camera) + " at " + at + " " + time);
                const std::string file = out("n.png");
                const Result run = render("--scene nivalis --camera " + std::to_string(camera) + " --path-at " + at +
                                       " --time-of-day " + time + " --out " + file);
                ASSERT_EQ(run.status, 0) << run.output;
                EXPECT_EQ(magenta(PngFile::read(file)), 0);
            }
        }
    }
}

/// Which pixels of two renders of the same moment differ: those that a hidden part covered.
struct Mask {
    int width = 0;
    int height = 0;
    std::vector<char> set;

    bool at(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height && set[y * width + x]; }
    int count() const {
        int n = 0;
        for (char c : set) {
            n += c;
        }
        return n;
    }
};

Mask difference(const PngFile::Image& a, const PngFile::Image& b) {
    Mask mask{a.width, a.height, std::vector<char>(static_cast<std::size_t>(a.width * a.height), 0)};
    EXPECT_EQ(a.pixels.size(), b.pixels.size());
    for (std::size_t i = 0; i + 3 < a.pixels.size() && i + 3 < b.pixels.size(); i += 4) {
        int largest = 0;
        for (std::size_t c = 0; c < 3; ++c) {
            largest = std::max(largest, std::abs(a.pixels[i + c] - b.pixels[i + c]));
        }
        // The renders repeat exactly; a small margin only allows for dithering that follows depth.
        mask.set[i / 4] = largest > 3;
    }
    return mask;
}

/// The lowest pixel of each column of one connected blob of a mask (4-neighbours).
struct Blob {
    int pixels = 0;
    std::vector<std::pair<int, int>> bottom;  // (x, y), y counted from the top
};

std::vector<Blob> blobs(const Mask& mask) {
    std::vector<int> label(mask.set.size(), -1);
    std::vector<Blob> found;
    for (int start = 0; start < mask.width * mask.height; ++start) {
        if (!mask.set[start] || label[start] >= 0) {
            continue;
        }
        const int id = static_cast<int>(found.size());
        Blob blob;
        std::vector<int> lowest(static_cast<std::size_t>(mask.width), -1);
        std::vector<int> stack{start};
        label[start] = id;
        while (!stack.empty()) {
            const int p = stack.back();
            stack.pop_back();
            const int x = p % mask.width, y = p / mask.width;
            ++blob.pixels;
            lowest[x] = std::max(lowest[x], y);
            for (const auto& [dx, dy] : {std::pair{1, 0}, std::pair{-1, 0}, std::pair{0, 1}, std::pair{0, -1}}) {
                const int q = (y + dy) * mask.width + (x + dx);
                if (mask.at(x + dx, y + dy) && label[q] < 0) {
                    label[q] = id;
                    stack.push_back(q);
                }
            }
        }
        for (int x = 0; x < mask.width; ++x) {
            if (lowest[x] >= 0) {
                blob.bottom.emplace_back(x, lowest[x]);
            }
        }
        found.push_back(std::move(blob));
    }
    return found;
}

/// How the ground under a blob splits: columns whose pixel just below the blob belongs to the
/// `ground` mask, and columns where it could be looked at (inside the picture, not the part
/// itself, e.g. another animal standing in front).
struct Footing {
    int onGround = 0;
    int looked = 0;
};

Footing footing(const Blob& blob, const Mask& part, const Mask& ground) {
    Footing f;
    for (const auto& [x, y] : blob.bottom) {
        if (y + 1 >= part.height || part.at(x, y + 1)) {
            continue;
        }
        ++f.looked;
        f.onGround += ground.at(x, y + 1);
    }
    return f;
}

/// One view for the standing checks: camera path, progress and the scene's clock.
struct View {
    int camera;
    const char* pathAt;
    const char* at;
};

std::string describe(const View& view) {
    return "camera " + std::to_string(view.camera) + " at " + view.pathAt + ", clock " + view.at;
}

class StandingCheck : public RenderCheck {
protected:
    // The picture of the view with the given parts hidden.
    PngFile::Image shot(const View& view, const std::vector<std::string>& hidden) {
        std::string arguments = "--scene nivalis --camera " + std::to_string(view.camera) + " --path-at " +
                                view.pathAt + " --at " + view.at + " --set vignette=false";
        for (const auto& part : hidden) {
            arguments += " --hide " + part;
        }
        const std::string file = out("s" + std::to_string(shots_++) + ".png");
        const Result run = render(arguments + " --out " + file, "320x180");
        EXPECT_EQ(run.status, 0) << run.output;
        return PngFile::read(file);
    }

    // Hides `part`, then also `ground`: every blob of the part must have the ground's pixels
    // right under it in at least `share` of its columns. Returns the part's pixel count.
    int checkStanding(const View& view, const std::string& part, const std::string& ground, double share,
                      bool waterline = false) {
        const auto whole = shot(view, {});
        const auto without = shot(view, {part});
        const auto bare = shot(view, {part, ground});
        const Mask partMask = difference(whole, without);
        const Mask groundMask = difference(without, bare);
        for (const Blob& blob : blobs(partMask)) {
            const Footing f = footing(blob, partMask, groundMask);
            if (f.looked == 0) {
                continue;
            }
            const auto [x, y] = blob.bottom.front();
            EXPECT_GE(f.onGround, share * f.looked)
                << part << " at " << x << "," << y << " (" << blob.pixels << " pixels): " << f.onGround << " of "
                << f.looked << " columns rest on " << ground;
            if (waterline) {
                // Behind the lowest row of the hull, with the ship hidden, lies water too.
                int wet = 0;
                for (const auto& [bx, by] : blob.bottom) {
                    wet += groundMask.at(bx, by);
                }
                EXPECT_GE(wet, share * static_cast<double>(blob.bottom.size()))
                    << part << " at " << x << "," << y << ": " << wet << " of " << blob.bottom.size()
                    << " waterline pixels over " << ground;
            }
        }
        return partMask.count();
    }

private:
    int shots_ = 0;
};

TEST_F(StandingCheck, AnimalsStandOnTheLand) {
    // The seal colony close up (path 4), the penguins from above (5), both far off (8, 1).
    for (const View& view : {View{4, "0.5", "60000"}, View{5, "0.1", "60000"}, View{8, "0.5", "60000"},
                             View{1, "0.1", "60000"}}) {
        SCOPED_TRACE(describe(view));
        EXPECT_GT(checkStanding(view, "animals", "mountains", 0.8), 0);
    }
}

TEST_F(StandingCheck, ShipsFloatOnTheWater) {
    // The ships are far out at sea from every path: a few pixels each at this size.
    for (const View& view : {View{1, "0.5", "60000"}, View{8, "0.5", "60000"}, View{6, "0.5", "20000"}}) {
        SCOPED_TRACE(describe(view));
        EXPECT_GT(checkStanding(view, "ships", "water", 0.8, true), 0);
    }
}

} // namespace
