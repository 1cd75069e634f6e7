#include "tests/renderer/support/RendererHarness.h"

#include "renderer/loaders/HalfFloat.h"

namespace renderer::test {

namespace {

using uniforms::UniformDataType;
using uniforms::UniformType;

const char* QUAD_VERTEX = "in vec2 position; in vec2 uv;\n";
const char* BLUR_FRAGMENT =
    "uniform sampler2D uFragmentTexture0;\nuniform vec2 uFragment1;\nuniform float uFragment2;\n";

} // namespace

FakeScene::FakeScene() {
    FOV_LANDSCAPE = 50.0f;
    FOV_PORTRAIT = 70.0f;
    Z_NEAR = 1.0f;
    Z_FAR = 100.0f;
}

void FakeScene::initialize() {
    ++initializeCalls;
    loadedAtInitialize = loaded;
    for (const auto& mesh : meshes) meshIdsAtInitialize.push_back(mesh ? mesh->id : -100);
    for (const auto& shader : shaders) shaderIdsAtInitialize.push_back(shader ? shader->id : -100);
    for (const auto& texture : textures) textureIdsAtInitialize.push_back(texture ? texture->id : -100);
}

void FakeScene::updateTimers(double time) {
    times.push_back(time);
    Scene::updateTimers(time);
}

void FakeScene::updateViewportSize(std::int32_t width, std::int32_t height) {
    viewportUpdates.emplace_back(width, height);
    Scene::updateViewportSize(width, height);
}

RendererHarness::RendererHarness() {
    resources.writeShader("Vignette", "// Vignette\nin vec2 vertex; in float ao;\nuniform vec4 uVertex1;\nuniform vec4 uVertex2;\n",
                          "out vec4 color;\n");
    resources.writeShader("FullscreenQuad", std::string("// FullscreenQuad\n") + QUAD_VERTEX,
                          "uniform sampler2D uFragmentTexture0;\n");
    for (const char* kernel : {"GaussianBlur", "GaussianBlur4", "GaussianBlur3", "GaussianBlur2"}) {
        resources.writeShader(kernel, std::string("// ") + kernel + "\n" + QUAD_VERTEX, BLUR_FRAGMENT);
    }
    resources.writeShader("Flat", "// Flat\nuniform mat4 uVertex1;\n", "uniform vec4 uFragment1;\n");
    resources.writeShader("Textured", "// Textured\nuniform mat4 uVertex1;\nuniform sampler2D uVertexTexture0;\n",
                          "uniform sampler2D uFragmentTexture0;\nuniform sampler2D uFragmentTexture1;\n");
    resources.writeShader("Numbers", "// Numbers\nuniform int uVertex2;\nuniform ivec3 uVertex3;\nuniform float uVertex4[5];\n",
                          "uniform vec2 uFragment2;\nuniform int uFragment3[6];\n");
    resources.writeVignetteModel({-1, -1, 0, 1, -1, 0, 0, 1, 1}, {0, 1, 2});

    table = {
        {"Vignette", {{UniformType::VERTEX, UniformDataType::FP16, 1}, {UniformType::VERTEX, UniformDataType::FP16, 2}}},
        {"FullscreenQuad", {{UniformType::FRAGMENT, UniformDataType::TEXTURE, 0}}},
        {"Flat", {{UniformType::VERTEX, UniformDataType::FP32, 1}, {UniformType::FRAGMENT, UniformDataType::FP16, 1}}},
        {"Textured",
         {{UniformType::VERTEX, UniformDataType::FP32, 1},
          {UniformType::FRAGMENT, UniformDataType::TEXTURE, 0},
          {UniformType::FRAGMENT, UniformDataType::TEXTURE, 1},
          {UniformType::VERTEX, UniformDataType::TEXTURE, 0}}},
        {"Numbers",
         {{UniformType::VERTEX, UniformDataType::INT32, 2},
          {UniformType::VERTEX, UniformDataType::INT16, 3},
          {UniformType::VERTEX, UniformDataType::FP32, 4},
          {UniformType::FRAGMENT, UniformDataType::FP16, 2},
          {UniformType::FRAGMENT, UniformDataType::FP16, 3}}},
        {"Missing", {}},
    };
}

SceneRenderer::Options RendererHarness::options() {
    SceneRenderer::Options result;
    result.resources = resources.path();
    result.clock = [this] { return clockSeconds; };
    return result;
}

std::unique_ptr<TableRenderer> RendererHarness::makeRenderer() {
    return std::make_unique<TableRenderer>(gl, scene, "scene", options(), table);
}

std::shared_ptr<engine::Mesh> RendererHarness::addMesh(const std::string& name, int triangles) {
    std::vector<std::uint16_t> indices;
    for (int i = 0; i < triangles; ++i) {
        indices.insert(indices.end(), {0, 1, 2});
    }
    resources.writeModel("scene", name, TestResources::floatBytes({0, 0, 0, 1, 0, 0, 0, 1, 0}), indices);
    auto mesh = std::make_shared<engine::Mesh>(name, nullptr);
    scene->meshes.push_back(mesh);
    return mesh;
}

std::shared_ptr<engine::Shader> RendererHarness::addShader(const std::string& name) {
    auto shader = std::make_shared<engine::Shader>(name);
    scene->shaders.push_back(shader);
    return shader;
}

std::shared_ptr<engine::Texture> RendererHarness::addTexture(const std::string& name) {
    const std::uint16_t one = loaders::HalfFloat::fromFloat(1.0f);
    resources.writeFp16Texture("scene", name + ".rgba.fp16", {one, 0, 0, one, 0, one, 0, one});
    auto texture = std::make_shared<engine::Texture>();
    texture->name = name;
    texture->fileName = name + ".rgba.fp16";
    texture->format = engine::TextureFormat::RGBA16F;
    texture->width = 2;
    texture->height = 1;
    scene->textures.push_back(texture);
    return texture;
}

std::shared_ptr<engine::commands::DrawMeshState> RendererHarness::state(const std::shared_ptr<engine::Shader>& shader) {
    auto attributes = std::make_shared<engine::VertexAttributesDescriptor>(
        std::vector<engine::VertexAttribute>{
            engine::VertexAttribute(engine::AttributeType::VERTEX, 0, engine::VertexFormat::FLOAT3, 0)},
        12);
    return std::make_shared<engine::commands::DrawMeshState>(shader, engine::BLENDING_NONE, engine::DEPTH_TEST_ENABLED,
                                                             engine::CullFace::BACK, attributes);
}

std::shared_ptr<engine::commands::DrawMeshCommand>
RendererHarness::draw(const std::shared_ptr<engine::Mesh>& mesh,
                      const std::shared_ptr<engine::commands::DrawMeshState>& state,
                      std::vector<std::shared_ptr<engine::commands::UniformValue>> uniforms) {
    return std::make_shared<engine::commands::DrawMeshCommand>(mesh, std::move(uniforms), state,
                                                               engine::commands::PrimitiveType::TRIANGLES, -1);
}

std::shared_ptr<engine::commands::UniformFloatValue> RendererHarness::floats(std::vector<float> values) {
    return std::make_shared<engine::commands::UniformFloatValue>(std::move(values));
}

std::shared_ptr<engine::commands::UniformTextureValue>
RendererHarness::texture(std::shared_ptr<engine::Texture> value) {
    return std::make_shared<engine::commands::UniformTextureValue>(std::move(value));
}

FrameTarget RendererHarness::target(double width, double height, GLuint framebuffer) {
    return FrameTarget{framebuffer, width, height};
}

} // namespace renderer::test
