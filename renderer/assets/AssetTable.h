#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/Scene.h"
#include "renderer/loaders/AstcTexture.h"
#include "renderer/loaders/FullModel.h"
#include "renderer/ShaderFunctions.h"
#include "renderer/gl/Gl.h"

namespace renderer::assets {

/// The GPU side of a scene's assets: every mesh, texture, sampler and shader that the scene
/// names, loaded once and numbered. Loading writes each asset's position here into its `id` in
/// the scene's description, which is how draws find their GPU objects. A required asset that
/// cannot be loaded stops the process. Everything is released with the table.
///
/// A table can be shared by several renderers of scenes of the same class (one per monitor)
/// whose GL contexts share objects: the first load of each kind loads, every later one only
/// writes the same ids into the other scene, after checking that it names the same assets in
/// the same order (a scene of another class stops the process). Buffers, textures, samplers
/// and programs are shared objects in GL; vertex arrays are not, so the table keeps none: each
/// renderer makes its own pipelines, the vignette's too. The table and every renderer over it
/// must use one `Gl` that outlives them all, since a program links through whichever renderer
/// first asks for it; it is freed where a context of the share group is current.
class AssetTable {
public:
    explicit AssetTable(gl::Gl& gl) : gl_(gl) {}
    ~AssetTable();
    AssetTable(const AssetTable&) = delete;
    AssetTable& operator=(const AssetTable&) = delete;

    /// The two stages of each shader of `scene` from the library under `resources`; a shader the
    /// library lacks leaves an empty slot, so ids stay positions.
    void loadShaders(engine::Scene& scene, const std::filesystem::path& resources);
    /// One FullModel per mesh of `scene`, in order, from `<resources>/<resourcesRoot>`.
    void loadModels(engine::Scene& scene, const std::string& resourcesRoot, const std::filesystem::path& resources);
    /// One texture (where the format has a loader) and one sampler per texture of `scene`, in
    /// order; `Texture::id` is the count of textures before it. After a texture of a format
    /// without a loader the samplers run one ahead of the textures, and later ids pick the wrong
    /// sampler: scenes must not name such textures.
    void loadTextures(engine::Scene& scene, const std::filesystem::path& directory,
                      loaders::AstcTexture::Decoding decoding);
    /// The vignette mesh and, where the library has the "Vignette" shader, its stages.
    void loadVignette(const std::filesystem::path& resources);

    /// Indexed by `Mesh::id`.
    std::vector<loaders::FullModel> models;
    /// GL textures, indexed by `Texture::id`.
    std::vector<GLuint> textures;
    /// GL samplers, indexed by `Texture::id`.
    std::vector<GLuint> samplers;
    /// Indexed by `Shader::id`; null where the library lacks the shader.
    std::vector<std::shared_ptr<ShaderFunctions>> shaders;
    /// The vignette mesh, and its stages where the library has them.
    std::optional<loaders::FullModel> fmVignette;
    std::shared_ptr<ShaderFunctions> vignetteFunctions;

private:
    /// What one kind of asset was loaded for: the scene's names in order and the id each got,
    /// so that another scene of the class can be numbered without loading.
    struct Numbering {
        bool loaded = false;
        std::vector<std::string> names;
        std::vector<std::int32_t> ids;
    };

    /// Writes the recorded ids into `list` (non-null entries, in order); false when the table
    /// has not loaded this kind yet. Stops the process when `list` names other assets.
    template <typename List, typename NameOf>
    bool renumber(const List& list, const Numbering& numbering, NameOf nameOf, const char* kind) const;
    /// Loads the non-null entries of `list` in order with `load`, which returns the id it gave
    /// the asset, and records name and id in `numbering` for `renumber`.
    template <typename List, typename NameOf, typename Load>
    static void number(const List& list, Numbering& numbering, NameOf nameOf, Load load);

    void releaseModels();
    void releaseTextures();

    gl::Gl& gl_;
    Numbering shaderNumbering_;
    Numbering meshNumbering_;
    Numbering textureNumbering_;
};

} // namespace renderer::assets
