#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "engine/BackendMode.h"
#include "engine/Mesh.h"
#include "engine/Shader.h"
#include "engine/Texture.h"
#include "engine/commands/Command.h"
#include "engine/commands/UniformValue.h"
#include "engine/math/Vec3.h"

namespace engine {

/// The base of everything that can be shown. A scene owns the assets it names (`meshes`,
/// `textures`, `shaders`), one command tree (`commands`) built once in its constructor, and the
/// four matrices every draw is fed from. It never touches a GPU: once a frame the host calls
/// `updateTimers` with a clock reading, the scene moves its timers and camera and rewrites
/// numbers inside its tree, and the renderer then walks the tree.
///
/// A concrete scene stores FOV_LANDSCAPE, FOV_PORTRAIT, Z_NEAR and Z_FAR in its constructor, and
/// overrides initialize, updateTimers and updateViewportSize. Its updateTimers runs, in this
/// order, its timers, its camera animator, its animate() (settings, calculateProjection, the view
/// matrix, updateMeshTransformations, its own uniforms) and finally stores `lastFrameTime`.
/// The frame path allocates nothing: matrix work goes through the four matrices here and the
/// Matrix scratch arrays, and uniforms are written in place.
///
/// All fields are public: the host and the renderer read and write several of them directly.
class Scene {
public:
    using CommandList = std::vector<std::shared_ptr<commands::Command>>;
    using MeshList = std::vector<std::shared_ptr<Mesh>>;
    using TextureList = std::vector<std::shared_ptr<Texture>>;
    using ShaderList = std::vector<std::shared_ptr<Shader>>;

    /// Clock reading of the last finished updateTimers, in milliseconds; while a frame is being
    /// animated it still holds the previous frame's time.
    double lastFrameTime = 0.0;
    /// View matrix, column-major.
    std::array<float, 16> matView{};
    /// Projection matrix, rebuilt every frame by calculateProjection.
    std::array<float, 16> matProjection{};
    /// Model matrix of the draw being prepared; meaningless after the walk.
    std::array<float, 16> matModel{};
    /// Projection * view * model of the draw being prepared; meaningless after the walk.
    std::array<float, 16> matMVP{};
    /// Depth range of the projection; the renderer stores its own mode after creating the scene.
    BackendMode backendMode = BackendMode::OPENGL;
    /// Top level of the command tree; the renderer walks this list.
    CommandList commands;
    /// Every mesh the renderer has to load.
    MeshList meshes;
    /// Every texture the renderer has to load.
    TextureList textures;
    /// Every shader the renderer has to prepare.
    ShaderList shaders;
    /// Drawable width in pixels.
    std::int32_t viewportWidth = 0;
    /// Drawable height in pixels.
    std::int32_t viewportHeight = 0;
    /// Extra field of view, in units of ZOOM_FOV.
    float zoom = 0.0f;
    /// Degrees that a `zoom` of 1.0 adds.
    float ZOOM_FOV = 10.0f;
    /// Vertical field of view in degrees when the height is not greater than the width.
    float FOV_LANDSCAPE = 0.0f;
    /// Vertical field of view in degrees when the height is greater than the width.
    float FOV_PORTRAIT = 0.0f;
    /// Near plane; must be above 0 and differ from Z_FAR.
    float Z_NEAR = 0.0f;
    /// Far plane.
    float Z_FAR = 0.0f;
    /// When true, animate() leaves `matView` alone: whoever set the flag owns the matrix.
    bool useExternalViewMatrix = false;
    /// Set by the renderer once initialize() has returned.
    bool loaded = false;

    virtual ~Scene() = default;

    /// The command tree's top level.
    virtual CommandList& getCommands();
    /// The meshes to load.
    virtual MeshList& getMeshes();
    /// The shaders to prepare.
    virtual ShaderList& getShaders();
    /// The textures to load.
    virtual TextureList& getTextures();
    /// Replaces the command tree's top level.
    virtual void setCommands(CommandList list);
    /// Replaces the mesh list.
    virtual void setMeshes(MeshList list);
    /// Replaces the shader list.
    virtual void setShaders(ShaderList list);
    /// Replaces the texture list.
    virtual void setTextures(TextureList list);

    /// Rebuilds `matProjection` for a viewport of `width` by `height`: the vertical field of view
    /// is FOV_LANDSCAPE (or FOV_PORTRAIT when height > width) times `multiplier`, plus
    /// zoom * ZOOM_FOV. Depth maps to -1..1, or to 0..1 when `backendMode` is METAL. A height of 0
    /// or less counts as an aspect ratio of 1. Throws std::invalid_argument when the frustum is
    /// unusable (Z_NEAR == Z_FAR, a plane not above 0, a field of view of 0).
    virtual void calculateProjection(float multiplier, std::int32_t width, std::int32_t height);
    /// Called once by the renderer after it has loaded the assets; the base does nothing.
    virtual void initialize();
    /// Advances the scene to the clock reading `time` (milliseconds); the base only stores
    /// `lastFrameTime`.
    virtual void updateTimers(double time);
    /// Stores the drawable size; the projection follows on the next frame.
    virtual void updateViewportSize(std::int32_t width, std::int32_t height);

    /// Points `matView` from `eye` at `target` with +Z as up, the view every scene's camera gives;
    /// leaves it alone while `useExternalViewMatrix` is set.
    void lookAt(const math::Vec3& eye, const math::Vec3& target);

    /// Sets `matModel` to translate * rotateX * rotateY * rotateZ * scale (rotations in degrees)
    /// and `matMVP` to matProjection * matView * matModel.
    void calculateMVPMatrix(float tx, float ty, float tz, float rx, float ry, float rz, float sx, float sy,
                            float sz);
    /// Sets `matMVP` to matProjection * matView * modelMatrix (16 floats); `matModel` is untouched.
    void calculateMVPMatrixFromModelMatrix(std::span<const float> modelMatrix);
    /// calculateMVPMatrix with the nine numbers, then writes `matMVP` into `uniform` (a
    /// UniformFloatValue of at least 16 elements).
    void setMvpUniform(const std::shared_ptr<commands::UniformValue>& uniform, float tx, float ty, float tz,
                       float rx, float ry, float rz, float sx, float sy, float sz);
    /// Walks `commands` depth first and stores the matrices of every transformed and static draw
    /// into the uniforms its indices name (MVP, model, view, projection; negative indices are
    /// skipped). Null entries and disabled nodes are passed over with their subtrees; plain
    /// DrawMeshCommands are left alone. Throws std::out_of_range for an index beyond `uniforms`.
    void updateMeshTransformations(const CommandList& commands);

protected:
    Scene() = default;
    Scene(const Scene&) = default;
    Scene& operator=(const Scene&) = default;
};

} // namespace engine
