#pragma once

#include <epoxy/gl.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace renderer::gl {

/// The whole GPU interface of the renderer, in one narrow class: every OpenGL call that the
/// renderer and its loaders make goes through here. `EpoxyGl` forwards to a real OpenGL 3.3 core
/// context; the tests use a recording fake, so that walks, caches and the filtering of state
/// changes can be checked call by call without a GPU.
///
/// Object names and enumerations are the plain GL types and constants (`GL_TRIANGLES`,
/// `GL_RGBA8`, ...). Calls that only create or fill an object (buffers, textures, samplers,
/// renderbuffers, framebuffer attachments) never disturb the bindings that drawing relies on:
/// the vertex array, the array buffer and texture units 0 to 15 keep what they held. Names are
/// never 0 for a created object; 0 stands for "none" wherever a name is taken.
class Gl {
public:
    virtual ~Gl() = default;

    // One pure virtual function per entry of GlMethods.inc, where each is described.
#define GL_METHOD(Result, name, parameters, arguments, qualifier) virtual Result name parameters qualifier = 0;
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD
};

} // namespace renderer::gl
