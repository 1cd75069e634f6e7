// Every resource that the Nivalis, Betonia and Example scenes name, as the build generated it:
// the files exist where the loaders look, the vertex files fit the layouts of the draw states
// that read them, indices stay below the vertex count, ASTC headers and mip chains hold
// together, animation tables have their exact size and move, and every
// palette coordinate lands on a colour in all four palettes.
#include <gtest/gtest.h>
#include <webp/decode.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/UniformTextureValue.h"
#include "scenes/betonia/BetoniaScene.h"
#include "scenes/spirelight/SpirelightScene.h"
#include "scenes/example/ExampleScene.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/nivalis/Textures.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

const fs::path kResources = NIVALIS_RESOURCES_DIR;

Bytes read(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        ADD_FAILURE() << "missing " << path;
        return {};
    }
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// IEEE half to float, written out here so that the check does not lean on the generator's own.
float half(std::uint16_t h) {
    const int exponent = (h >> 10) & 0x1F;
    const int mantissa = h & 0x3FF;
    const float sign = (h & 0x8000) ? -1.0f : 1.0f;
    if (exponent == 0) {
        return sign * std::ldexp(static_cast<float>(mantissa), -24);
    }
    if (exponent == 31) {
        return mantissa ? std::nanf("") : sign * INFINITY;
    }
    return sign * std::ldexp(static_cast<float>(mantissa + 1024), exponent - 25);
}

std::uint16_t u16(const Bytes& b, std::size_t at) { return static_cast<std::uint16_t>(b[at] | b[at + 1] << 8); }

/// One draw's view of a mesh: its layout (null for none) and the textures it binds.
struct Use {
    std::shared_ptr<engine::VertexAttributesDescriptor> layout;
    std::vector<std::shared_ptr<engine::Texture>> textures;
    std::string shader;
};

void walk(const std::shared_ptr<engine::commands::Command>& node, std::set<const void*>& seen,
          std::map<const engine::Mesh*, std::vector<Use>>& uses) {
    if (!node || !seen.insert(node.get()).second) {
        return;
    }
    if (auto group = std::dynamic_pointer_cast<engine::commands::GroupCommand>(node)) {
        for (const auto& child : group->commands) {
            walk(child, seen, uses);
        }
    } else if (auto draw = std::dynamic_pointer_cast<engine::commands::DrawMeshCommand>(node)) {
        Use use{draw->state->vertexAttributes, {}, draw->state->shader->name};
        for (const auto& u : draw->uniforms) {
            if (auto t = std::dynamic_pointer_cast<engine::commands::UniformTextureValue>(u)) {
                use.textures.push_back(t->value);
            }
        }
        uses[draw->mesh.get()].push_back(use);
    }
}

fs::path modelStem(const std::string& root, const std::string& fileName) {
    const fs::path name(fileName);
    return kResources / root / (name.has_parent_path() ? name.parent_path() : fs::path("models")) / name.filename();
}

/// The palette images of the polar sea, decoded.
struct Palettes {
    std::vector<std::vector<std::uint8_t>> images;
    int width = 0;
    int height = 0;
};

Palettes nivalisPalettes() {
    Palettes p;
    for (const auto& texture : scenes::nivalis::Textures::shared().palettes) {
        const Bytes file = read(kResources / "nivalis/textures" / (texture->fileName + ".webp"));
        std::uint8_t* rgba = WebPDecodeRGBA(file.data(), file.size(), &p.width, &p.height);
        EXPECT_NE(rgba, nullptr);
        if (rgba) {
            p.images.emplace_back(rgba, rgba + static_cast<std::size_t>(p.width) * p.height * 4);
            WebPFree(rgba);
        }
    }
    return p;
}

class SceneResources : public ::testing::TestWithParam<std::string> {
protected:
    static std::unique_ptr<engine::Scene> make(const std::string& name) {
        if (name == "nivalis") {
            return std::make_unique<scenes::nivalis::NivalisScene>();
        }
        if (name == "betonia") {
            return std::make_unique<scenes::betonia::BetoniaScene>();
        }
        if (name == "spirelight") {
            return std::make_unique<scenes::spirelight::SpirelightScene>();
        }
        return std::make_unique<scenes::example::ExampleScene>();
    }
};

TEST_P(SceneResources, ModelsFitTheirDrawStatesAndIndicesStayInRange) {
    const std::string root = GetParam();
    auto scene = make(root);
    std::set<const void*> seen;
    std::map<const engine::Mesh*, std::vector<Use>> uses;
    for (const auto& node : scene->getCommands()) {
        walk(node, seen, uses);
    }
    const Palettes palettes = root == "nivalis" ? nivalisPalettes() : Palettes{};
    for (const auto& mesh : scene->getMeshes()) {
        SCOPED_TRACE(root + "/" + mesh->fileName);
        const fs::path stem = modelStem(root, mesh->fileName);
        const Bytes vertices = read(stem.string() + "-strides.bin");
        const Bytes indices = read(stem.string() + "-indices.bin");
        ASSERT_EQ(indices.size() % 2, 0u);
        ASSERT_GT(indices.size(), 0u);
        ASSERT_EQ(indices.size() / 2 % 3, 0u);

        const auto found = uses.find(mesh.get());
        std::shared_ptr<engine::VertexAttributesDescriptor> layout;
        std::int32_t animationWidth = 0;
        if (found != uses.end()) {
            layout = found->second.front().layout;
            for (const Use& use : found->second) {
                ASSERT_EQ(static_cast<bool>(use.layout), static_cast<bool>(layout));
                if (layout) {
                    ASSERT_EQ(*use.layout, *layout) << "two draws read the model in two layouts";
                }
                for (const auto& t : use.textures) {
                    if (t->format == engine::TextureFormat::RGBA16F) {
                        animationWidth = t->width;
                    }
                }
            }
        }
        std::size_t vertexCount = 0;
        if (layout) {
            ASSERT_GT(vertices.size(), 0u);
            ASSERT_EQ(vertices.size() % layout->stride(), 0u);
            vertexCount = vertices.size() / layout->stride();
        } else if (found != uses.end()) {
            // No vertex stream: the model's vertices are the texels of its animation rows.
            EXPECT_TRUE(vertices.empty());
            ASSERT_GT(animationWidth, 0);
            vertexCount = static_cast<std::size_t>(animationWidth);
        } else if (mesh->attributes) {
            ASSERT_EQ(vertices.size() % mesh->attributes->stride(), 0u);
            vertexCount = vertices.size() / mesh->attributes->stride();
        } else {
            vertexCount = 65536;
        }
        if (animationWidth > 0) {
            EXPECT_LE(vertexCount, static_cast<std::size_t>(animationWidth)) << "more vertices than one table row";
        }
        ASSERT_LE(vertexCount, 65536u);
        std::uint16_t highest = 0;
        for (std::size_t i = 0; i < indices.size(); i += 2) {
            highest = std::max(highest, u16(indices, i));
        }
        EXPECT_LT(highest, vertexCount);

        if (!layout) {
            continue;
        }
        // Every attribute decodes to finite numbers; palette coordinates hit defined colours.
        const bool paletted = root == "nivalis" && found->second.front().shader != "CausticsWater" &&
                              found->second.front().shader != "SkyDither";
        for (std::size_t v = 0; v < vertexCount; ++v) {
            for (const auto& a : layout->attributes()) {
                const std::size_t at = v * layout->stride() + a.offset();
                const std::string_view format = toString(a.format());
                float first = 0.0f;
                if (format.starts_with("HALF")) {
                    const int n = engine::componentCount(a.format());
                    for (int c = 0; c < n; ++c) {
                        const float value = half(u16(vertices, at + 2 * c));
                        ASSERT_TRUE(std::isfinite(value)) << "vertex " << v;
                        if (c == 0) {
                            first = value;
                        }
                    }
                } else if (format.starts_with("FLOAT")) {
                    for (int c = 0; c < engine::componentCount(a.format()); ++c) {
                        float value = 0.0f;
                        std::memcpy(&value, vertices.data() + at + 4 * c, 4);
                        ASSERT_TRUE(std::isfinite(value)) << "vertex " << v;
                    }
                }
                const bool coordinate = a.type() == engine::AttributeType::U0 || a.type() == engine::AttributeType::UV0;
                if (paletted && coordinate && format.starts_with("HALF")) {
                    ASSERT_GE(first, 0.0f);
                    ASSERT_LT(first, 1.0f);
                    const int column = static_cast<int>(first * palettes.width);
                    for (const auto& image : palettes.images) {
                        const std::uint8_t* px = image.data() + (static_cast<std::size_t>(palettes.height / 2) * palettes.width + column) * 4;
                        ASSERT_FALSE(px[0] == 0 && px[1] == 255 && px[2] == 0) << "palette column " << column << " is unset";
                    }
                }
            }
        }
    }
}

TEST_P(SceneResources, TexturesHaveTheirFormatsSizesAndMipChains) {
    const std::string root = GetParam();
    auto scene = make(root);
    const fs::path dir = kResources / root / "textures";
    for (const auto& texture : scene->getTextures()) {
        SCOPED_TRACE(root + "/" + texture->fileName);
        switch (texture->format) {
        case engine::TextureFormat::RGBA8:
        case engine::TextureFormat::RGB8:
            break; // the WebP loader decodes them, or fails, whenever a golden picture is drawn
        case engine::TextureFormat::RGBA16F: {
            const Bytes file = read(dir / texture->fileName);
            ASSERT_EQ(file.size(), static_cast<std::size_t>(texture->width) * texture->height * 8);
            const int frames = texture->height - 1; // one chunk
            double largestMove = 0.0;
            double lo = 1e9, hi = -1e9; // extent of the first pose along its longest axis
            for (int x = 0; x < texture->width; ++x) {
                auto at = [&](int row, int c) { return half(u16(file, (static_cast<std::size_t>(row) * texture->width + x) * 8 + 2 * c)); };
                for (int row = 0; row < texture->height; ++row) {
                    for (int c = 0; c < 4; ++c) {
                        ASSERT_TRUE(std::isfinite(at(row, c)));
                    }
                }
                if (at(0, 3) == 1.0f) { // texels of real vertices carry an alpha of 1
                    for (int c = 0; c < 3; ++c) {
                        lo = std::min<double>(lo, at(0, c));
                        hi = std::max<double>(hi, at(0, c));
                    }
                }
                for (int f = 1; f < frames; ++f) {
                    largestMove = std::max<double>(largestMove, std::hypot(at(f, 0) - at(0, 0), at(f, 1) - at(0, 1), at(f, 2) - at(0, 2)));
                }
            }
            // Some part moves by more than a twentieth of the animal's size.
            EXPECT_GT(largestMove, (hi - lo) * 0.05) << "the poses hardly move";
            break;
        }
        case engine::TextureFormat::ASTC: {
            static const std::set<std::pair<int, int>> blocks = {{4, 4},  {5, 4},  {5, 5},  {6, 5},   {6, 6},   {8, 5},   {8, 6},
                                                                 {8, 8},  {10, 5}, {10, 6}, {10, 8},  {10, 10}, {12, 10}, {12, 12}};
            const int levels = texture->mipmaps == 0 ? 1 : texture->mipmaps + 1;
            int width = 0, height = 0, bw = 0, bh = 0;
            for (int level = 0; level < levels; ++level) {
                const std::string name = texture->mipmaps == 0 ? texture->fileName + ".astc"
                                                               : texture->fileName + "_" + std::to_string(level) + ".astc";
                const Bytes file = read(dir / name);
                ASSERT_GE(file.size(), 16u);
                EXPECT_EQ(file[0], 0x13);
                EXPECT_EQ(file[1], 0xAB);
                EXPECT_EQ(file[2], 0xA1);
                EXPECT_EQ(file[3], 0x5C);
                const int w = file[7] | file[8] << 8 | file[9] << 16;
                const int h = file[10] | file[11] << 8 | file[12] << 16;
                if (level == 0) {
                    bw = file[4];
                    bh = file[5];
                    ASSERT_TRUE(blocks.contains({bw, bh})) << bw << "x" << bh;
                    if (texture->mipmaps == 0) {
                        EXPECT_EQ(w % bw, 0) << "single-level width must be a multiple of the block";
                    }
                } else {
                    EXPECT_EQ(file[4], bw);
                    EXPECT_EQ(file[5], bh);
                    EXPECT_EQ(w, std::max(1, width / 2)) << "level " << level;
                    EXPECT_EQ(h, std::max(1, height / 2)) << "level " << level;
                    EXPECT_TRUE(w < width || h < height) << "level " << level << " does not shrink";
                }
                width = w;
                height = h;
                const std::size_t count = static_cast<std::size_t>((w + bw - 1) / bw) * ((h + bh - 1) / bh);
                EXPECT_EQ(file.size(), 16u + count * 16u);
            }
            if (texture->mipmaps > 0) {
                EXPECT_FALSE(fs::exists(dir / (texture->fileName + "_" + std::to_string(levels) + ".astc")));
            }
            break;
        }
        default:
            ADD_FAILURE() << "no loader reads this format";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scenes, SceneResources, ::testing::Values("nivalis", "spirelight", "betonia", "example"));

} // namespace
