#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/Scene.h"
#include "engine/commands/BlurredPassCommand.h"
#include "engine/commands/DrawBlurredCommand.h"
#include "engine/commands/DrawMeshCommand.h"
#include "engine/commands/DrawMeshState.h"
#include "engine/commands/MainPassCommand.h"
#include "engine/commands/VignetteCommand.h"
#include "renderer/loaders/AstcTexture.h"
#include "renderer/FrameTarget.h"
#include "renderer/loaders/FullModel.h"
#include "renderer/passes/FullscreenQuad.h"
#include "renderer/passes/GaussianBlurRenderPass.h"
#include "renderer/RenderPipelineStateWithDepth.h"
#include "renderer/RenderQuality.h"
#include "renderer/ShaderFunctions.h"
#include "renderer/uniforms/ShaderUniforms.h"
#include "renderer/assets/AssetTable.h"
#include "renderer/draw/StateFilter.h"
#include "renderer/draw/UniformStaging.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderEncoder.h"
#include "renderer/gpu/RenderPassDescriptor.h"
#include "renderer/passes/MultisampledTarget.h"
#include "renderer/passes/PassWalk.h"

namespace renderer {

/// The executor of a scene. The scene owns what is drawn: its assets and a tree of commands.
/// The renderer owns how: it loads every asset once, at construction, and on every frame tells
/// the scene the time, walks the scene's tree and turns it into GL work.
///
/// Start-up, in this order: the scene's backend mode becomes OPENGL (a clip depth of -1 to 1);
/// the shaders, models, textures and the vignette are loaded, and each asset's `id` in the
/// scene is written as its position in the arrays here; then the scene's `initialize` runs and
/// `loaded` is set. Any required asset that cannot be loaded stops the process.
///
/// A frame (`drawFrame`): the drawable size is compared with the scene's viewport and the scene
/// told of a change; the scene advances to the clock's time in milliseconds; then the tree is
/// walked. Passes are found at any depth of plain groups and run in tree order: a blurred pass
/// draws its children into its blur chain and blurs it, the main pass draws into a target of the
/// renderer's own that is resolved into the frame's framebuffer. That target is 4-sampled at the
/// drawable's size in HIGH quality, and single-sampled at `LOW_SCALE` of it in LOW quality, the
/// resolve then scaling it up with linear filtering; the scene's viewport is the target's size,
/// so that what it sizes in pixels keeps its look. Before a pass
/// opens, its clear colour and clears are gathered from its children; load actions are only ever
/// raised to clear. The renderer knows no window: the host swaps buffers (or reads pixels back)
/// after the frame.
///
/// State changes are filtered against what the renderer last set, by whole draw states
/// (`activeState`), depth states and texture slots, with the rules the scenes are written for:
/// `activeState` is never cleared, and the slot caches are emptied at the start of the main pass
/// and after a vignette or blurred quad, but not at the start of a blurred pass. A tree must
/// therefore never draw the same state object last in one pass and first in the next.
///
/// The frame path allocates nothing once every pipeline, chain and quad exists: uniforms go
/// through four fixed staging arrays and are copied into GL at the call.
///
/// Each job is done by a part with a file of its own: `assets::AssetTable` loads and numbers the
/// assets, `passes::PassWalk` walks the tree, `draw::StateFilter` filters state changes,
/// `draw::UniformStaging` hands uniforms over, and `passes::MultisampledTarget` keeps the main
/// pass's target; the renderer runs the passes and the draws with them. All fields are public,
/// in the order of the renderer's data model, so that hosts and tests can look at caches and
/// slots.
class SceneRenderer {
public:
    /// Everything a renderer takes from its surroundings besides GL and the scene.
    struct Options {
        /// The resources directory: `<resources>/<resourcesRoot>/...` for the scene's assets,
        /// `<resources>/models` for the vignette, `<resources>/shaders` for the shader library.
        std::filesystem::path resources;
        /// A monotonic clock in seconds that is not 0 at the first frame; empty for the
        /// process's steady clock (sped up by $NIVALIS_CLOCK_RATE where that is set).
        std::function<double()> clock;
        /// Where ASTC textures are decoded.
        loaders::AstcTexture::Decoding astcDecoding = loaders::AstcTexture::Decoding::AUTO;
        /// What the main pass's attachments start with when no ClearCommand raises them: the
        /// host's choice, by default a clear to opaque black and a depth of 1.
        gpu::LoadAction viewColorLoadAction = gpu::LoadAction::CLEAR;
        std::array<double, 4> viewClearColor{0.0, 0.0, 0.0, 1.0};
        gpu::LoadAction viewDepthLoadAction = gpu::LoadAction::CLEAR;
        double viewClearDepth = 1.0;
        /// A table shared with other renderers of scenes of the same class whose contexts share
        /// objects with this one (a monitor each), over the same `Gl`: the first renderer loads
        /// it, the others only number their scene from it. Empty: a table of the renderer's own.
        std::shared_ptr<assets::AssetTable> assets;
        /// Where linked programs are kept as the driver's binaries from one run to the next (see
        /// gpu::ProgramBinaryCache); empty for no cache, every program compiled from its sources.
        std::filesystem::path programCache;
        /// The quality of the main pass; AUTO is resolved with the context's GL_RENDERER.
        RenderQuality quality = RenderQuality::HIGH;
    };

    /// The most elements one uniform may have.
    static constexpr std::size_t STAGING_SIZE = draw::UniformStaging::STAGING_SIZE;
    /// Texture slots per stage.
    static constexpr int SLOTS = draw::StateFilter::SLOTS;
    /// Label of the main pass.
    static constexpr const char* MAIN_PASS_LABEL = "Main Render Encoder";
    /// The main pass's size in LOW quality, as a fraction of the drawable's width and height:
    /// 640x360 for 1920x1080, where llvmpipe then draws 30 frames a second within 0.9 of a core
    /// (bench/quality_cost.py). Most of a LOW frame is work that does not shrink with the size
    /// (vertices, the scaled blit, the swap): 3/8 costs a tenth more, 1/2 a quarter more.
    static constexpr double LOW_SCALE = 1.0 / 3.0;

    /// A renderer without a uniform table: its start-up stops with "Not implemented", as the
    /// scene renderers of each scene are the ones to use.
    SceneRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot, Options options);
    /// Releases every GL object of the renderer.
    virtual ~SceneRenderer();
    SceneRenderer(const SceneRenderer&) = delete;
    SceneRenderer& operator=(const SceneRenderer&) = delete;

    /// One frame into `target`. Returns how many main passes reached the target (1 for a
    /// well-formed tree, 0 when there is nothing to draw on or the tree has no main pass).
    int drawFrame(const FrameTarget& target);

    /// Takes the quality for the next frame on, which remakes the main pass's target there.
    void setQuality(RenderQuality quality) { options.quality = quality; }
    /// The quality that the frames are drawn in: `options.quality` with AUTO resolved.
    RenderQuality effectiveQuality() const { return resolveQuality(options.quality, softwareRasteriser); }
    /// The main pass's size for a drawable of `width` by `height` pixels in the effective
    /// quality; nothing when there is nothing to draw on.
    std::optional<std::pair<GLsizei, GLsizei>> mainPassSize(double width, double height) const;

    /// The uniform table of the renderer's scene, by shader name. The base has none and stops
    /// the process with "Not implemented".
    virtual const uniforms::ShaderUniforms& shaderUniforms() const;

    // ---- Start-up steps ---------------------------------------------------------------------

    /// The vignette mesh and, where the library has the "Vignette" shader, its pipeline.
    virtual void loadVignette();
    /// One FullModel per mesh of the scene, in order; `Mesh::id` is its position.
    virtual void loadModels();
    /// One texture (where the format has a loader) and one sampler per texture of the scene, in
    /// order; `Texture::id` is the count of textures before it. After a texture of a format
    /// without a loader the samplers run one ahead of the textures, and later ids pick the
    /// wrong sampler: scenes must not name such textures.
    virtual void loadTextures();
    /// The uniform table, and the two stages of each shader of the scene; a shader the library
    /// lacks leaves an empty slot, so ids stay positions, and its draws are skipped in silence.
    virtual void loadShaders();

    // ---- The walks --------------------------------------------------------------------------

    /// Runs the passes of `commands` in order, at any depth of plain groups.
    void processCommands(const engine::Scene::CommandList& commands, const FrameTarget& target);
    /// Gathers the clear colour and the clears of a pass into `descriptor` before it opens.
    void prepareCommands(const engine::Scene::CommandList& commands, gpu::RenderPassDescriptor& descriptor);
    /// Draws the meshes, vignettes and blurred quads of a pass.
    void encodeCommands(const engine::Scene::CommandList& commands, gpu::RenderPassDescriptor& descriptor,
                        gpu::RenderEncoder& encoder);
    /// The pass that goes to the frame's target.
    void processMainPass(const engine::commands::MainPassCommand& pass, const FrameTarget& target);
    /// A pass into a blur chain, then the blur.
    void processBlurredPass(const engine::commands::BlurredPassCommand& pass);
    /// Empties the three slot caches.
    void resetBindingCaches();

    // ---- Command execution ------------------------------------------------------------------

    /// One draw: pipeline found or made, state changes filtered, uniforms bound, the whole
    /// index buffer drawn. A shader the library lacks draws nothing. A draw with neither a mesh
    /// nor a vertex layout draws `primitiveCount` vertices (at least one) that its shader places.
    void drawMesh(const engine::commands::DrawMeshCommand& command, gpu::RenderEncoder& encoder);
    /// The draw's values into their stages and slots by the shader's row of the uniform table.
    void bindUniforms(const engine::commands::DrawMeshCommand& command, gpu::RenderEncoder& encoder);
    /// The vignette mesh multiplied over the pass with the command's two colours.
    void drawVignette(const engine::commands::VignetteCommand& command, gpu::RenderEncoder& encoder);
    /// The image of the blur chain that ran last, as a full-screen quad with the command's
    /// blending; nothing before any chain ran.
    void drawBlurred(const std::shared_ptr<engine::commands::Command>& command, gpu::RenderEncoder& encoder);

    // ---- Fields -----------------------------------------------------------------------------

private:
    /// The GL given, with programs made through the program binary cache; null without a cache.
    std::unique_ptr<gl::Gl> cachingGl_;

public:
    /// The GL that every part of the renderer works through.
    gl::Gl& gl;
    std::shared_ptr<engine::Scene> scene;
    std::string resourcesRoot;
    Options options;
    /// Whether the context's GL_RENDERER names a software rasteriser, read once at start-up so
    /// that frames resolve AUTO without a GL query.
    bool softwareRasteriser = false;

    // The parts that do the renderer's jobs, each in a file of its own.

    /// The scene's meshes, textures, samplers and shaders, numbered: the options' shared table,
    /// or one of the renderer's own.
    std::shared_ptr<assets::AssetTable> assetTable =
        options.assets != nullptr ? options.assets : std::make_shared<assets::AssetTable>(gl);
    assets::AssetTable& assets = *assetTable;
    /// The filter of state changes and its caches.
    draw::StateFilter stateFilter;
    /// The staging of uniform values.
    draw::UniformStaging uniformStaging;
    /// The main pass's target.
    passes::MultisampledTarget multisampledTarget{gl};
    /// The walks over the tree.
    passes::PassWalk passWalk{*this};

    // The renderer's data, in the order of its data model; those that a part keeps are names for
    // the part's fields.

    /// Last colour given by a ClearColorCommand; survives from frame to frame.
    std::array<double, 4> clearColor{1.0, 0.0, 0.0, 1.0};
    /// Vignette colours as half floats, r, g, b, a.
    std::array<std::uint16_t, 4> colorVignette0_fp16{};
    std::array<std::uint16_t, 4> colorVignette1_fp16{};
    std::vector<loaders::FullModel>& models = assets.models;
    std::vector<GLuint>& textures = assets.textures;
    std::vector<GLuint>& samplers = assets.samplers;
    std::vector<std::shared_ptr<ShaderFunctions>>& shaders = assets.shaders;
    /// The uniform table in use.
    const uniforms::ShaderUniforms* shadersUniforms = nullptr;
    std::optional<loaders::FullModel>& fmVignette = assets.fmVignette;
    /// The vignette's pipeline, over the table's stages; per renderer, as its vertex array is.
    std::optional<RenderPipelineStateWithDepth> vignettePipelineStateWithDepth;
    std::array<float, STAGING_SIZE>& valueFp32 = uniformStaging.valueFp32;
    std::array<std::uint16_t, STAGING_SIZE>& valueFp16 = uniformStaging.valueFp16;
    std::array<std::int32_t, STAGING_SIZE>& valueInt32 = uniformStaging.valueInt32;
    std::array<std::int16_t, STAGING_SIZE>& valueInt16 = uniformStaging.valueInt16;
    /// Pipelines by the identity of the draw state.
    std::unordered_map<std::shared_ptr<engine::commands::DrawMeshState>, RenderPipelineStateWithDepth> pipelinesCache;
    /// Quads by DrawBlurredCommand id.
    std::map<std::int32_t, std::unique_ptr<passes::FullscreenQuad>> fullscreenQuadsCache;
    /// Blur chains by BlurredPassCommand id; kept for good, also when the viewport changes.
    std::map<std::int32_t, std::unique_ptr<passes::GaussianBlurRenderPass>> blurredPassesCache;
    /// The chain that ran last.
    passes::GaussianBlurRenderPass* activeBlurredPass = nullptr;
    std::shared_ptr<engine::commands::DrawMeshState>& activeState = stateFilter.activeState;
    const gpu::DepthStencilState*& activeDepthStencilState = stateFilter.activeDepthStencilState;
    std::array<GLuint, SLOTS>& activeFragmentTextures = stateFilter.activeFragmentTextures;
    std::array<GLuint, SLOTS>& activeFragmentSamplers = stateFilter.activeFragmentSamplers;
    std::array<GLuint, SLOTS>& activeVertexTextures = stateFilter.activeVertexTextures;
    GLuint& textureMsaa = multisampledTarget.textureMsaa;
    GLuint& depthMsaa = multisampledTarget.depthMsaa;
    GLuint& framebufferMsaa = multisampledTarget.framebufferMsaa;
    GLsizei& textureMsaaWidth = multisampledTarget.textureMsaaWidth;
    GLsizei& textureMsaaHeight = multisampledTarget.textureMsaaHeight;
    /// Samples per pixel of the main pass's target (1 in LOW quality, 4 in HIGH).
    int& sampleCount = multisampledTarget.sampleCount;
    /// Records every pass into GL.
    gpu::RenderEncoder encoder;

protected:
    /// A renderer whose uniform table is `uniforms`: the constructor of the scene renderers,
    /// which also return that table from `shaderUniforms`.
    SceneRenderer(gl::Gl& gl, std::shared_ptr<engine::Scene> scene, std::string resourcesRoot, Options options,
                  const uniforms::ShaderUniforms& uniforms);

private:
    void start();
    double now() const;

    const uniforms::ShaderUniforms* uniforms_ = nullptr;
    int presents_ = 0;
};

} // namespace renderer
