#pragma once

#include "renderer/gl/Gl.h"

namespace renderer::gl {

/// A `Gl` that passes every call on to another one: the base of a `Gl` that changes how one or
/// two calls are done and leaves the rest as they are.
class ForwardingGl : public Gl {
public:
    /// Passes calls on to `inner`, which must outlive this one.
    explicit ForwardingGl(Gl& inner) : inner_(inner) {}

#define GL_METHOD(Result, name, parameters, arguments, qualifier)                                                      \
    Result name parameters qualifier override { return inner_.name arguments; }
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD

protected:
    /// The `Gl` that does the work.
    Gl& inner_;
};

} // namespace renderer::gl
