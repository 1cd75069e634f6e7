#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/Blending.h"
#include "engine/DepthMode.h"
#include "engine/Scene.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/DrawMeshState.h"
#include "engine/commands/UniformFloatValue.h"
#include "engine/commands/UniformTextureValue.h"
#include "renderer/Fatal.h"
#include "renderer/FrameTarget.h"
#include "renderer/SceneRenderer.h"
#include "tests/renderer/support/RecordingGl.h"
#include "tests/renderer/support/TestResources.h"

namespace renderer::test {

/// A scene that draws what a test puts into it and notes what the renderer asks of it.
class FakeScene : public engine::Scene {
public:
    FakeScene();

    int initializeCalls = 0;
    /// `loaded` as initialize saw it, and the ids of the assets at that moment.
    bool loadedAtInitialize = true;
    std::vector<std::int32_t> meshIdsAtInitialize;
    std::vector<std::int32_t> shaderIdsAtInitialize;
    std::vector<std::int32_t> textureIdsAtInitialize;
    std::vector<std::pair<std::int32_t, std::int32_t>> viewportUpdates;
    std::vector<double> times;

    void initialize() override;
    void updateTimers(double time) override;
    void updateViewportSize(std::int32_t width, std::int32_t height) override;
};

/// A renderer with a uniform table chosen by the test.
class TableRenderer : public SceneRenderer {
public:
    TableRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot, Options options,
                  const uniforms::ShaderUniforms& table)
        : SceneRenderer(gl, std::move(scene), std::move(resourcesRoot), std::move(options), table), table_(table) {}
    const uniforms::ShaderUniforms& shaderUniforms() const override { return table_; }

private:
    const uniforms::ShaderUniforms& table_;
};

/// While it lives, a fatal stop throws Fatal::Stop instead of ending the test program.
class ScopedFatalThrows {
public:
    ScopedFatalThrows() : previous_(Fatal::setHandler(&Fatal::throwingHandler)) {}
    ~ScopedFatalThrows() { Fatal::setHandler(previous_); }
    ScopedFatalThrows(const ScopedFatalThrows&) = delete;
    ScopedFatalThrows& operator=(const ScopedFatalThrows&) = delete;

private:
    Fatal::Handler previous_;
};

/// A renderer on the recording fake with resources written by the test. The resources hold
/// the shaders "Vignette", "FullscreenQuad", the four blur kernels and "Flat", "Textured",
/// "Numbers" (see `table`), and the vignette model; the scene's own assets live below the
/// resources root "scene".
class RendererHarness {
public:
    RendererHarness();

    RecordingGl gl;
    TestResources resources;
    std::shared_ptr<FakeScene> scene = std::make_shared<FakeScene>();
    /// The clock the renderer reads, in seconds.
    double clockSeconds = 1.0;
    uniforms::ShaderUniforms table;
    ScopedFatalThrows fatalThrows;

    SceneRenderer::Options options();
    std::unique_ptr<TableRenderer> makeRenderer();

    /// A mesh of `triangles` triangles (3 indices each) over a 3-vertex FLOAT3 buffer, added to
    /// the scene.
    std::shared_ptr<engine::Mesh> addMesh(const std::string& name, int triangles = 1);
    std::shared_ptr<engine::Shader> addShader(const std::string& name);
    /// A 2 x 1 RGBA16F texture added to the scene.
    std::shared_ptr<engine::Texture> addTexture(const std::string& name);
    /// A state of `shader` with depth test and write, no blending, back faces culled and one
    /// FLOAT3 attribute at stride 12.
    static std::shared_ptr<engine::commands::DrawMeshState> state(const std::shared_ptr<engine::Shader>& shader);
    static std::shared_ptr<engine::commands::DrawMeshCommand>
    draw(const std::shared_ptr<engine::Mesh>& mesh, const std::shared_ptr<engine::commands::DrawMeshState>& state,
         std::vector<std::shared_ptr<engine::commands::UniformValue>> uniforms = {});
    static std::shared_ptr<engine::commands::UniformFloatValue> floats(std::vector<float> values);
    static std::shared_ptr<engine::commands::UniformTextureValue> texture(std::shared_ptr<engine::Texture> value);
    static FrameTarget target(double width = 64, double height = 32, GLuint framebuffer = 0);
};

} // namespace renderer::test
