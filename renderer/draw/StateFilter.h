#pragma once

#include <array>
#include <memory>

#include "engine/commands/DrawMeshState.h"
#include "renderer/RenderPipelineStateWithDepth.h"
#include "renderer/gl/Gl.h"
#include "renderer/gpu/RenderEncoder.h"

namespace renderer::draw {

/// Filters the state changes of draws against what was last set on the encoder, by whole draw
/// states, depth states and texture slots, with the rules the scenes are written for:
/// `activeState` is never cleared, while the depth state and the slot caches are forgotten when
/// a pass opens the main encoder and after anything that sets state behind the filter's back (a
/// vignette, a blurred quad), but not when a blurred pass opens. A tree must therefore never draw
/// the same state object last in one pass and first in the next.
class StateFilter {
public:
    /// Texture slots per stage.
    static constexpr int SLOTS = 8;

    /// Sets the pipeline, depth state and cull mode of `state` unless it is the active state; the
    /// depth state only when it is not the one set last through here.
    void applyState(const std::shared_ptr<engine::commands::DrawMeshState>& state,
                    const RenderPipelineStateWithDepth& pipeline, gpu::RenderEncoder& encoder);
    /// Binds a fragment texture and its sampler to `slot` (0 to SLOTS - 1), each only if the slot
    /// holds another one.
    void bindFragmentTexture(int slot, GLuint texture, GLuint sampler, gpu::RenderEncoder& encoder);
    /// Binds a vertex texture to `slot` (0 to SLOTS - 1) if the slot holds another one.
    void bindVertexTexture(int slot, GLuint texture, gpu::RenderEncoder& encoder);
    /// Forgets the depth state and empties the slot caches; the active state stays.
    void forgetDepthAndSlots();
    /// Empties the three slot caches.
    void resetBindingCaches();

    /// State of the last draw; never cleared.
    std::shared_ptr<engine::commands::DrawMeshState> activeState;
    /// Last depth state set through `applyState`.
    const gpu::DepthStencilState* activeDepthStencilState = nullptr;
    /// Slot caches; 0 is an empty slot.
    std::array<GLuint, SLOTS> activeFragmentTextures{};
    std::array<GLuint, SLOTS> activeFragmentSamplers{};
    std::array<GLuint, SLOTS> activeVertexTextures{};
};

} // namespace renderer::draw
