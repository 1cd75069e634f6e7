// Costs of the renderer: the GL calls of one Nivalis frame by kind, the CPU time of the walk and
// its submission on a 1 x 1 target beside a frame that only clears and resolves, and the time
// from start-up to the first frame.
//
// Resources: the build tree's generated ones (`<build>/resources`, or $NIVALIS_RESOURCES) when
// they hold the Nivalis assets, else stand-ins written to a temporary folder with the shipped
// shaders. GL runs on the headless EGL context (Mesa's software rasteriser without a GPU).
#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <unistd.h>

#include "engine/commands/ClearCommand.h"
#include "engine/commands/MainPassCommand.h"
#include "renderer/scenes/NivalisRenderer.h"
#include "renderer/scenes/SpirelightRenderer.h"
#include "renderer/gl/EpoxyGl.h"
#include "renderer/headless/HeadlessContext.h"
#include "renderer/headless/OffscreenTarget.h"
#include "scenes/nivalis/NivalisScene.h"
#include "scenes/spirelight/SpirelightScene.h"

// The stand-in assets of the renderer tests; they need nothing but the standard library and
// libwebp, so the benchmark compiles them in rather than duplicating them.
#include "tests/renderer/support/NullGl.h"
#include "tests/renderer/support/SceneAssets.cpp"
#include "tests/renderer/support/TestResources.cpp"

namespace {

using renderer::FrameTarget;
using renderer::SceneRenderer;
using renderer::gl::Gl;
using renderer::scenes::NivalisRenderer;
using renderer::uniforms::ShaderUniforms;

/// Forwards every call to another Gl and counts the calls by kind.
class CountingGl final : public Gl {
public:
    enum Kind {
        BUFFER, BIND_BUFFER, TEXTURE_UPLOAD, BIND_TEXTURE, SAMPLER, BIND_SAMPLER, PROGRAM, USE_PROGRAM, UNIFORM,
        VERTEX_ARRAY, BIND_VERTEX_ARRAY, ATTRIBUTE, FRAMEBUFFER, BIND_FRAMEBUFFER, BLIT, INVALIDATE, VIEWPORT, CLEAR,
        CAPABILITY, BLEND, DEPTH, CULL, DRAW, OTHER, KINDS
    };
    static constexpr const char* NAMES[KINDS] = {
        "createBuffer", "bindBuffer", "texUpload", "bindTexture", "sampler", "bindSampler", "program", "useProgram",
        "uniform", "vertexArray", "bindVertexArray", "attribPointer", "framebuffer", "bindFramebuffer", "blit",
        "invalidate", "viewport", "clear", "enableDisable", "blendState", "depthState", "cullState", "draw", "other"};

    explicit CountingGl(Gl& inner) : inner_(inner) {}
    std::array<std::uint64_t, KINDS> counts{};
    std::uint64_t total() const {
        std::uint64_t sum = 0;
        for (auto n : counts) sum += n;
        return sum;
    }

    bool hasExtension(std::string_view name) const override { return inner_.hasExtension(name); }
    int version() const override { return inner_.version(); }
    GLenum getError() override { return ++counts[OTHER], inner_.getError(); }
    void finish() override { inner_.finish(); }
    std::string rendererName() const override { return inner_.rendererName(); }
    GLuint createBuffer(GLenum t, std::span<const std::byte> d) override { return ++counts[BUFFER], inner_.createBuffer(t, d); }
    void deleteBuffer(GLuint b) override { ++counts[BUFFER], inner_.deleteBuffer(b); }
    void bindBuffer(GLenum t, GLuint b) override { ++counts[BIND_BUFFER], inner_.bindBuffer(t, b); }
    GLuint createTexture() override { return ++counts[TEXTURE_UPLOAD], inner_.createTexture(); }
    void deleteTexture(GLuint t) override { ++counts[TEXTURE_UPLOAD], inner_.deleteTexture(t); }
    void texImage2D(GLuint t, GLint l, GLenum i, GLsizei w, GLsizei h, GLenum f, GLenum ty, const void* p) override {
        ++counts[TEXTURE_UPLOAD], inner_.texImage2D(t, l, i, w, h, f, ty, p);
    }
    void compressedTexImage2D(GLuint t, GLint l, GLenum i, GLsizei w, GLsizei h, std::span<const std::byte> d) override {
        ++counts[TEXTURE_UPLOAD], inner_.compressedTexImage2D(t, l, i, w, h, d);
    }
    void texParameteri(GLuint t, GLenum n, GLint v) override { ++counts[TEXTURE_UPLOAD], inner_.texParameteri(t, n, v); }
    void bindTexture(GLuint u, GLuint t) override { ++counts[BIND_TEXTURE], inner_.bindTexture(u, t); }
    GLuint createSampler() override { return ++counts[SAMPLER], inner_.createSampler(); }
    void deleteSampler(GLuint s) override { ++counts[SAMPLER], inner_.deleteSampler(s); }
    void samplerParameteri(GLuint s, GLenum n, GLint v) override { ++counts[SAMPLER], inner_.samplerParameteri(s, n, v); }
    void samplerParameterf(GLuint s, GLenum n, GLfloat v) override { ++counts[SAMPLER], inner_.samplerParameterf(s, n, v); }
    void bindSampler(GLuint u, GLuint s) override { ++counts[BIND_SAMPLER], inner_.bindSampler(u, s); }
    GLuint createProgram(std::string_view v, std::string_view f, std::string& log) override {
        return ++counts[PROGRAM], inner_.createProgram(v, f, log);
    }
    void deleteProgram(GLuint p) override { ++counts[PROGRAM], inner_.deleteProgram(p); }
    GLint uniformLocation(GLuint p, const char* n) override { return ++counts[PROGRAM], inner_.uniformLocation(p, n); }
    void useProgram(GLuint p) override { ++counts[USE_PROGRAM], inner_.useProgram(p); }
    void uniformFloats(GLint l, int c, GLsizei n, const GLfloat* v) override { ++counts[UNIFORM], inner_.uniformFloats(l, c, n, v); }
    void uniformInts(GLint l, int c, GLsizei n, const GLint* v) override { ++counts[UNIFORM], inner_.uniformInts(l, c, n, v); }
    GLuint createVertexArray() override { return ++counts[VERTEX_ARRAY], inner_.createVertexArray(); }
    void deleteVertexArray(GLuint a) override { ++counts[VERTEX_ARRAY], inner_.deleteVertexArray(a); }
    void bindVertexArray(GLuint a) override { ++counts[BIND_VERTEX_ARRAY], inner_.bindVertexArray(a); }
    void enableVertexAttribArray(GLuint i) override { ++counts[VERTEX_ARRAY], inner_.enableVertexAttribArray(i); }
    void vertexAttribPointer(GLuint i, GLint s, GLenum t, bool n, GLsizei st, std::size_t o) override {
        ++counts[ATTRIBUTE], inner_.vertexAttribPointer(i, s, t, n, st, o);
    }
    void vertexAttribIPointer(GLuint i, GLint s, GLenum t, GLsizei st, std::size_t o) override {
        ++counts[ATTRIBUTE], inner_.vertexAttribIPointer(i, s, t, st, o);
    }
    GLuint createFramebuffer() override { return ++counts[FRAMEBUFFER], inner_.createFramebuffer(); }
    void deleteFramebuffer(GLuint f) override { ++counts[FRAMEBUFFER], inner_.deleteFramebuffer(f); }
    void bindFramebuffer(GLenum t, GLuint f) override { ++counts[BIND_FRAMEBUFFER], inner_.bindFramebuffer(t, f); }
    void framebufferTexture(GLuint f, GLenum a, GLuint t) override { ++counts[FRAMEBUFFER], inner_.framebufferTexture(f, a, t); }
    void framebufferRenderbuffer(GLuint f, GLenum a, GLuint r) override {
        ++counts[FRAMEBUFFER], inner_.framebufferRenderbuffer(f, a, r);
    }
    GLenum checkFramebufferStatus(GLuint f) override { return ++counts[FRAMEBUFFER], inner_.checkFramebufferStatus(f); }
    GLuint createRenderbuffer(GLsizei s, GLenum i, GLsizei w, GLsizei h) override {
        return ++counts[FRAMEBUFFER], inner_.createRenderbuffer(s, i, w, h);
    }
    void deleteRenderbuffer(GLuint r) override { ++counts[FRAMEBUFFER], inner_.deleteRenderbuffer(r); }
    void blitFramebuffer(GLint a, GLint b, GLint c, GLint d, GLint e, GLint f, GLint g, GLint h, GLbitfield m,
                         GLenum fi) override {
        ++counts[BLIT], inner_.blitFramebuffer(a, b, c, d, e, f, g, h, m, fi);
    }
    void invalidateFramebuffer(GLenum t, std::span<const GLenum> a) override { ++counts[INVALIDATE], inner_.invalidateFramebuffer(t, a); }
    void readPixels(GLint x, GLint y, GLsizei w, GLsizei h, GLenum f, GLenum t, void* p) override {
        ++counts[OTHER], inner_.readPixels(x, y, w, h, f, t, p);
    }
    void viewport(GLint x, GLint y, GLsizei w, GLsizei h) override { ++counts[VIEWPORT], inner_.viewport(x, y, w, h); }
    void clearColor(GLfloat r, GLfloat g, GLfloat b, GLfloat a) override { ++counts[CLEAR], inner_.clearColor(r, g, b, a); }
    void clearDepth(GLdouble d) override { ++counts[CLEAR], inner_.clearDepth(d); }
    void clear(GLbitfield m) override { ++counts[CLEAR], inner_.clear(m); }
    void enable(GLenum c) override { ++counts[CAPABILITY], inner_.enable(c); }
    void disable(GLenum c) override { ++counts[CAPABILITY], inner_.disable(c); }
    void blendEquationSeparate(GLenum a, GLenum b) override { ++counts[BLEND], inner_.blendEquationSeparate(a, b); }
    void blendFuncSeparate(GLenum a, GLenum b, GLenum c, GLenum d) override { ++counts[BLEND], inner_.blendFuncSeparate(a, b, c, d); }
    void depthFunc(GLenum f) override { ++counts[DEPTH], inner_.depthFunc(f); }
    void depthMask(bool w) override { ++counts[DEPTH], inner_.depthMask(w); }
    void cullFace(GLenum m) override { ++counts[CULL], inner_.cullFace(m); }
    void frontFace(GLenum m) override { ++counts[CULL], inner_.frontFace(m); }
    void drawElements(GLenum m, GLsizei c, GLenum t, std::size_t o) override { ++counts[DRAW], inner_.drawElements(m, c, t, o); }
    void drawArrays(GLenum m, GLint f, GLsizei c) override { ++counts[DRAW], inner_.drawArrays(m, f, c); }
    GLuint createQuery() override { return inner_.createQuery(); }
    void deleteQuery(GLuint q) override { inner_.deleteQuery(q); }
    void beginTimeQuery(GLuint q) override { inner_.beginTimeQuery(q); }
    void endTimeQuery() override { inner_.endTimeQuery(); }
    std::uint64_t timeQueryResult(GLuint q) override { return inner_.timeQueryResult(q); }
    void driverName(std::string& name) const override { inner_.driverName(name); }
    GLint programBinaryFormats() const override { return inner_.programBinaryFormats(); }
    bool programBinary(GLuint p, GLenum& f, std::vector<std::byte>& b) override {
        return ++counts[PROGRAM], inner_.programBinary(p, f, b);
    }
    GLuint createProgramFromBinary(GLenum f, std::span<const std::byte> b) override {
        return ++counts[PROGRAM], inner_.createProgramFromBinary(f, b);
    }

private:
    Gl& inner_;
};

/// A scene whose frame only clears the main pass, which is then resolved: the floor under
/// any frame.
class ClearOnlyScene : public engine::Scene {
public:
    ClearOnlyScene() {
        commands = {std::make_shared<engine::commands::MainPassCommand>(
            true, std::vector<std::shared_ptr<engine::commands::Command>>{
                      std::make_shared<engine::commands::ClearCommand>()})};
    }
};

/// A renderer for the clear-only scene; it names no shader, so any table serves.
class ClearOnlyRenderer : public SceneRenderer {
public:
    ClearOnlyRenderer(Gl& gl, std::shared_ptr<engine::Scene> scene, Options options)
        : SceneRenderer(gl, std::move(scene), "", std::move(options), NivalisRenderer::uniforms()) {}
    const ShaderUniforms& shaderUniforms() const override { return NivalisRenderer::uniforms(); }
};

/// The resources the benchmarks run on, found or made once.
const std::filesystem::path& resources() {
    static std::optional<renderer::test::TestResources> standIns;
    static const std::filesystem::path path = [] {
        std::filesystem::path built;
        if (const char* fromEnvironment = std::getenv("NIVALIS_RESOURCES")) {
            built = fromEnvironment;
        } else {
            built = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "resources";
        }
        if (std::filesystem::exists(built / "nivalis" / "models") && std::filesystem::exists(built / "shaders")) {
            return built;
        }
        standIns.emplace();
        scenes::nivalis::NivalisScene scene;
        renderer::test::SceneAssets::write(scene, *standIns, "nivalis", !std::filesystem::exists(built / "shaders"));
        if (std::filesystem::exists(built / "shaders")) {
            std::filesystem::copy(built / "shaders", standIns->path() / "shaders");
        }
        return standIns->path();
    }();
    return path;
}

/// The headless context and its Gl, made once for all benchmarks.
struct Context {
    renderer::headless::HeadlessContext context;
    renderer::gl::EpoxyGl gl;
};

Context* context() {
    static std::unique_ptr<Context> shared = []() -> std::unique_ptr<Context> {
        try {
            return std::make_unique<Context>();
        } catch (const std::exception&) {
            return nullptr;
        }
    }();
    return shared.get();
}

SceneRenderer::Options options(double& seconds) {
    SceneRenderer::Options result;
    result.resources = resources();
    result.clock = [&seconds] { return seconds; };
    return result;
}

void reportCounts(benchmark::State& state, const CountingGl& counting, std::uint64_t frames) {
    for (int kind = 0; kind < CountingGl::KINDS; ++kind) {
        if (counting.counts[kind] > 0) {
            state.counters[CountingGl::NAMES[kind]] = double(counting.counts[kind]) / double(frames);
        }
    }
    state.counters["glCalls"] = double(counting.total()) / double(frames);
}

/// Frames of `renderer` on a 1 x 1 target, 1/60 s apart, each waited for; the first one, which
/// makes the pipelines, is not counted.
void measureFrames(benchmark::State& state, Context& shared, CountingGl& counting, SceneRenderer& renderer,
                   double& seconds) {
    renderer::headless::OffscreenTarget target(1, 1);
    const FrameTarget frame{target.framebuffer(), 1, 1};
    renderer.drawFrame(frame);
    shared.gl.finish();
    counting.counts.fill(0);
    std::uint64_t frames = 0;
    for (auto _ : state) {
        seconds += 1.0 / 60.0;
        renderer.drawFrame(frame);
        shared.gl.finish();
        ++frames;
    }
    reportCounts(state, counting, frames);
}

/// One Nivalis frame on a 1 x 1 target: the walk and the submission of its GL calls, waited for.
void BM_NivalisFrame(benchmark::State& state) {
    Context* shared = context();
    if (shared == nullptr) {
        state.SkipWithError("no headless GL context");
        return;
    }
    const bool blurred = state.range(0) != 0;
    double seconds = 30.0;
    auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
    scene->settings.blurred = blurred;
    CountingGl counting(shared->gl);
    NivalisRenderer renderer(counting, scene, "nivalis", options(seconds), "day");
    measureFrames(state, *shared, counting, renderer, seconds);
}
BENCHMARK(BM_NivalisFrame)->Arg(0)->Arg(1)->ArgName("blurred")->Unit(benchmark::kMicrosecond);

/// One Spirelight frame on a 1 x 1 target, as BM_NivalisFrame: its bloom pass, sprites and
/// meshless aircraft included. Needs the generated resources.
void BM_SpirelightFrame(benchmark::State& state) {
    Context* shared = context();
    if (shared == nullptr || !std::filesystem::exists(resources() / "spirelight" / "models")) {
        state.SkipWithError(shared == nullptr ? "no headless GL context" : "no generated spirelight resources");
        return;
    }
    double seconds = 30.0;
    auto scene = std::make_shared<scenes::spirelight::SpirelightScene>();
    scene->settings.blurred = state.range(0) != 0;
    CountingGl counting(shared->gl);
    renderer::scenes::SpirelightRenderer renderer(counting, scene, "spirelight", options(seconds));
    measureFrames(state, *shared, counting, renderer, seconds);
}
BENCHMARK(BM_SpirelightFrame)->Arg(0)->Arg(1)->ArgName("blurred")->Unit(benchmark::kMicrosecond);

/// A frame that only clears and resolves the 1 x 1 target.
void BM_ClearAndResolveFrame(benchmark::State& state) {
    Context* shared = context();
    if (shared == nullptr) {
        state.SkipWithError("no headless GL context");
        return;
    }
    double seconds = 30.0;
    CountingGl counting(shared->gl);
    ClearOnlyRenderer renderer(counting, std::make_shared<ClearOnlyScene>(), options(seconds));
    measureFrames(state, *shared, counting, renderer, seconds);
}
BENCHMARK(BM_ClearAndResolveFrame)->Unit(benchmark::kMicrosecond);

/// The renderer's own share of a Nivalis frame: the scene's animation and the walk, with every
/// GL call going nowhere (no driver).
void BM_NivalisFrameWithoutDriver(benchmark::State& state) {
    renderer::test::NullGl null;
    double seconds = 30.0;
    auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
    auto opts = options(seconds);
    opts.astcDecoding = renderer::loaders::AstcTexture::Decoding::GPU;
    NivalisRenderer renderer(null, scene, "nivalis", opts, "day");
    const FrameTarget frame{0, 1, 1};
    renderer.drawFrame(frame);
    for (auto _ : state) {
        seconds += 1.0 / 60.0;
        renderer.drawFrame(frame);
    }
}
BENCHMARK(BM_NivalisFrameWithoutDriver)->Unit(benchmark::kMicrosecond);

/// The scene's animation alone, to tell the walk's share from the frame without a driver.
void BM_NivalisSceneUpdate(benchmark::State& state) {
    scenes::nivalis::NivalisScene scene;
    scene.updateViewportSize(1, 1);
    double milliseconds = 30000.0;
    scene.updateTimers(milliseconds);
    for (auto _ : state) {
        milliseconds += 1000.0 / 60.0;
        scene.updateTimers(milliseconds);
    }
}
BENCHMARK(BM_NivalisSceneUpdate)->Unit(benchmark::kMicrosecond);

/// From creating the renderer (every asset loaded, every shader read) to the end of its first
/// frame on a 640 x 360 target.
void BM_StartUpToFirstFrame(benchmark::State& state) {
    Context* shared = context();
    if (shared == nullptr) {
        state.SkipWithError("no headless GL context");
        return;
    }
    renderer::headless::OffscreenTarget target(640, 360);
    for (auto _ : state) {
        double seconds = 30.0;
        auto scene = std::make_shared<scenes::nivalis::NivalisScene>();
        NivalisRenderer renderer(shared->gl, scene, "nivalis", options(seconds), "day");
        renderer.drawFrame(FrameTarget{target.framebuffer(), 640, 360});
        shared->gl.finish();
    }
}
BENCHMARK(BM_StartUpToFirstFrame)->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
