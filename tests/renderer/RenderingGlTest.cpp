// Frames drawn by the renderer on a real GL context (Mesa's software rasteriser where there is
// no GPU), with small shaders, meshes and textures that the tests write themselves.
#include <gtest/gtest.h>

#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/ClearColorCommand.h"
#include "engine/commands/ClearCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/GroupCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "renderer/loaders/HalfFloat.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "tests/renderer/support/RendererHarness.h"

namespace renderer {
namespace {

using namespace engine::commands;
using test::RendererHarness;

const char* SOLID_VERTEX = R"(#version 330 core
layout(location = 0) in vec3 aPosition;
uniform mat4 uVertex1;
void main() { gl_Position = uVertex1 * vec4(aPosition, 1.0); }
)";
const char* SOLID_FRAGMENT = R"(#version 330 core
uniform vec4 uFragment1;
out vec4 fragColor;
void main() { fragColor = uFragment1; }
)";
const char* PALETTE_VERTEX = R"(#version 330 core
layout(location = 0) in vec3 aPosition;
layout(location = 1) in float aU;
uniform mat4 uVertex1;
out float vU;
void main() { vU = aU; gl_Position = uVertex1 * vec4(aPosition, 1.0); }
)";
const char* PALETTE_FRAGMENT = R"(#version 330 core
uniform sampler2D uFragmentTexture0;
in float vU;
out vec4 fragColor;
void main() { fragColor = texture(uFragmentTexture0, vec2(vU, 0.5)); }
)";
// The quad's v runs from the top; GL pictures start at the bottom row.
const char* QUAD_VERTEX = R"(#version 330 core
layout(location = 0) in vec2 aPosition;
layout(location = 1) in vec2 aUv;
out vec2 vUv;
void main() { vUv = vec2(aUv.x, 1.0 - aUv.y); gl_Position = vec4(aPosition, 0.0, 1.0); }
)";
const char* QUAD_FRAGMENT = R"(#version 330 core
uniform sampler2D uFragmentTexture0;
in vec2 vUv;
out vec4 fragColor;
void main() { fragColor = texture(uFragmentTexture0, vUv); }
)";
const char* BLUR_FRAGMENT = R"(#version 330 core
uniform sampler2D uFragmentTexture0;
uniform vec2 uFragment1;
uniform float uFragment2;
in vec2 vUv;
out vec4 fragColor;
void main() {
    vec2 step = uFragment1 / vec2(textureSize(uFragmentTexture0, 0));
    vec4 sum = 0.25 * texture(uFragmentTexture0, vUv - step) + 0.5 * texture(uFragmentTexture0, vUv)
             + 0.25 * texture(uFragmentTexture0, vUv + step);
    fragColor = sum * uFragment2;
}
)";
const char* VIGNETTE_VERTEX = R"(#version 330 core
layout(location = 0) in vec2 aPosition;
layout(location = 1) in float aAo;
uniform vec4 uVertex1;
uniform vec4 uVertex2;
out vec4 vColor;
void main() { vColor = mix(uVertex1, uVertex2, aAo); gl_Position = vec4(aPosition, 0.0, 1.0); }
)";
const char* VIGNETTE_FRAGMENT = R"(#version 330 core
in vec4 vColor;
out vec4 fragColor;
void main() { fragColor = vColor; }
)";

const std::vector<float> IDENTITY = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

struct Rgba {
    int r, g, b, a;
};

class RenderingGlTest : public ::testing::Test {
protected:
    void SetUp() override {
        auto& r = h.resources;
        r.writeShader("Solid", SOLID_VERTEX, SOLID_FRAGMENT);
        r.writeShader("Palette", PALETTE_VERTEX, PALETTE_FRAGMENT);
        r.writeShader("FullscreenQuad", QUAD_VERTEX, QUAD_FRAGMENT);
        for (const char* kernel : {"GaussianBlur", "GaussianBlur4", "GaussianBlur3", "GaussianBlur2"}) {
            r.writeShader(kernel, QUAD_VERTEX, BLUR_FRAGMENT);
        }
        r.writeShader("Vignette", VIGNETTE_VERTEX, VIGNETTE_FRAGMENT);
        // A fan from the centre (ao 1) to the four corners (ao 0), counter-clockwise.
        r.writeVignetteModel({0, 0, 1, -1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0},
                             {0, 1, 2, 0, 2, 3, 0, 3, 4, 0, 4, 1});
        table = {
            {"Solid",
             {{uniforms::UniformType::VERTEX, uniforms::UniformDataType::FP32, 1},
              {uniforms::UniformType::FRAGMENT, uniforms::UniformDataType::FP32, 1}}},
            {"Palette",
             {{uniforms::UniformType::VERTEX, uniforms::UniformDataType::FP32, 1},
              {uniforms::UniformType::FRAGMENT, uniforms::UniformDataType::TEXTURE, 0}}},
            {"Vignette", {}},
            {"FullscreenQuad", {}},
        };
    }

    /// A quad from (x0, y0) to (x1, y1) in clip space as FLOAT3 vertices, counter-clockwise.
    std::shared_ptr<engine::Mesh> quadMesh(const std::string& name, float x0, float y0, float x1, float y1) {
        h.resources.writeModel("scene", name,
                               test::TestResources::floatBytes({x0, y0, 0, x1, y0, 0, x1, y1, 0, x0, y1, 0}),
                               {0, 1, 2, 0, 2, 3});
        auto mesh = std::make_shared<engine::Mesh>(name, nullptr);
        h.scene->meshes.push_back(mesh);
        return mesh;
    }

    std::shared_ptr<DrawMeshCommand> solid(const std::shared_ptr<engine::Mesh>& mesh, std::vector<float> color) {
        if (!solidState) {
            solidState = RendererHarness::state(h.addShader("Solid"));
        }
        return RendererHarness::draw(mesh, solidState,
                                     {RendererHarness::floats(IDENTITY), RendererHarness::floats(std::move(color))});
    }

    static std::shared_ptr<GroupCommand> clearTo(float r, float g, float b) {
        auto color = std::make_shared<ClearColorCommand>();
        color->color = engine::math::Vec4(r, g, b, 1.0f);
        return std::make_shared<GroupCommand>(
            true, std::vector<std::shared_ptr<Command>>{color, std::make_shared<ClearCommand>()});
    }

    /// Draws one frame of the scene into a `width` by `height` target and reads it back.
    void render(int width, int height) {
        target = std::make_unique<headless::OffscreenTarget>(width, height);
        renderer = std::make_unique<test::TableRenderer>(gl, h.scene, "scene", h.options(), table);
        ASSERT_EQ(renderer->drawFrame(FrameTarget{target->framebuffer(), double(width), double(height)}), 1);
        pixels = target->readPixels();
        EXPECT_EQ(gl.getError(), GLenum(GL_NO_ERROR));
    }

    /// The pixel at column x, row y counted from the top.
    Rgba at(int x, int y) const {
        const std::size_t i = 4 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(target->width()) +
                                   static_cast<std::size_t>(x));
        return {pixels[i], pixels[i + 1], pixels[i + 2], pixels[i + 3]};
    }

    headless::HeadlessContext context;
    gl::EpoxyGl gl;
    RendererHarness h;
    uniforms::ShaderUniforms table;
    std::shared_ptr<DrawMeshState> solidState;
    std::unique_ptr<headless::OffscreenTarget> target;
    std::unique_ptr<test::TableRenderer> renderer;
    std::vector<std::uint8_t> pixels;
};

TEST_F(RenderingGlTest, APaletteMeshTakesItsColoursFromThePaletteTexture) {
    // Half positions and a half palette coordinate in 8-byte vertices, as the scene's palette
    // meshes have them: the left quad reads texel 0 (red), the right one texel 1 (green).
    h.resources.writeModel("scene", "halves",
                           test::TestResources::halfBytes({-1, -1, 0, 0.25f, 0, -1, 0, 0.25f, 0, 1, 0, 0.25f,
                                                           -1, 1, 0, 0.25f, 0, -1, 0, 0.75f, 1, -1, 0, 0.75f,
                                                           1, 1, 0, 0.75f, 0, 1, 0, 0.75f}),
                           {0, 1, 2, 0, 2, 3, 4, 5, 6, 4, 6, 7});
    auto mesh = std::make_shared<engine::Mesh>("halves", nullptr);
    h.scene->meshes.push_back(mesh);
    const std::uint16_t one = loaders::HalfFloat::fromFloat(1.0f);
    h.resources.writeFp16Texture("scene", "palette.rgba.fp16", {one, 0, 0, one, 0, one, 0, one});
    auto palette = std::make_shared<engine::Texture>();
    palette->fileName = "palette.rgba.fp16";
    palette->format = engine::TextureFormat::RGBA16F;
    palette->width = 2;
    palette->height = 1;
    palette->minFilter = palette->magFilter = engine::TextureFiltering::NEAREST;
    palette->wrapping = engine::TextureWrapping::CLAMP_TO_EDGE;
    h.scene->textures.push_back(palette);
    auto state = std::make_shared<DrawMeshState>(
        h.addShader("Palette"), engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED, engine::CullFace::BACK,
        std::make_shared<engine::VertexAttributesDescriptor>(
            std::vector<engine::VertexAttribute>{
                engine::VertexAttribute(engine::AttributeType::VERTEX, 0, engine::VertexFormat::HALF3, 0),
                engine::VertexAttribute(engine::AttributeType::U0, 1, engine::VertexFormat::HALF, 6)},
            8));
    h.scene->commands = {std::make_shared<MainPassCommand>(
        true, std::vector<std::shared_ptr<Command>>{
                  clearTo(0, 0, 1), RendererHarness::draw(mesh, state, {RendererHarness::floats(IDENTITY),
                                                                         RendererHarness::texture(palette)})})};
    render(32, 16);
    for (int y : {1, 8, 14}) {
        const Rgba left = at(4, y);
        const Rgba right = at(27, y);
        EXPECT_EQ((std::array<int, 3>{left.r, left.g, left.b}), (std::array<int, 3>{255, 0, 0})) << y;
        EXPECT_EQ((std::array<int, 3>{right.r, right.g, right.b}), (std::array<int, 3>{0, 255, 0})) << y;
    }
}

TEST_F(RenderingGlTest, ABlurredPassSoftensItsPictureAndKeepsItsPlace) {
    // A white square in the upper left quarter, drawn into a chain and shown blurred. A blurred
    // pass keeps the clockwise front faces of a fresh pass, so the square is drawn unculled.
    auto square = quadMesh("square", -0.75f, 0.25f, -0.25f, 0.75f);
    solidState = RendererHarness::state(h.addShader("Solid"));
    solidState->culling = engine::CullFace::DISABLED;
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->id = 1;
    blurred->minSize = 32;
    blurred->blurSize = BlurSize::KERNEL_2;
    blurred->brightness = 1.0f;
    blurred->commands = {clearTo(0, 0, 0), solid(square, {1, 1, 1, 1})};
    auto show = std::make_shared<DrawBlurredCommand>();
    show->id = 1;
    h.scene->commands = {blurred, std::make_shared<MainPassCommand>(
                                      true, std::vector<std::shared_ptr<Command>>{clearTo(0, 0, 0), show})};
    render(64, 64);
    // The square covers columns and rows 8 to 24 (from the top): its middle stays white, the
    // picture's lower half stays black, and its edge is neither.
    EXPECT_GT(at(16, 16).r, 240);
    EXPECT_LT(at(16, 48).r, 5);
    EXPECT_LT(at(48, 16).r, 5);
    const int edge = at(7, 16).r;
    EXPECT_GT(edge, 20);
    EXPECT_LT(edge, 235);
}

TEST_F(RenderingGlTest, ABlurredPassTakesClockwiseFacesAsFront) {
    // The same square with back faces culled: counter-clockwise is the back in a blurred pass,
    // while the main pass shows it.
    auto square = quadMesh("square", -0.75f, 0.25f, -0.25f, 0.75f);
    auto blurred = std::make_shared<BlurredPassCommand>();
    blurred->minSize = 32;
    blurred->commands = {clearTo(0, 0, 0), solid(square, {1, 1, 1, 1})};
    auto show = std::make_shared<DrawBlurredCommand>();
    auto sharp = quadMesh("sharp", 0.25f, -0.75f, 0.75f, -0.25f);
    // A state of its own: the one drawn last in the blurred pass would be taken for set.
    auto sharpDraw = RendererHarness::draw(sharp, RendererHarness::state(solidState->shader),
                                           {RendererHarness::floats(IDENTITY), RendererHarness::floats({0, 1, 0, 1})});
    h.scene->commands = {blurred, std::make_shared<MainPassCommand>(
                                      true, std::vector<std::shared_ptr<Command>>{clearTo(0, 0, 0), show, sharpDraw})};
    render(64, 64);
    EXPECT_LT(at(16, 16).r, 5);
    EXPECT_EQ(at(48, 48).g, 255);
}

} // namespace
} // namespace renderer
