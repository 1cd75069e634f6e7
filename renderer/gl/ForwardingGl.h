#pragma once

#include "renderer/gl/Gl.h"

namespace renderer::gl {

/// A `Gl` that passes every call on to another one: the base of a `Gl` that changes how one or
/// two calls are done and leaves the rest as they are.
class ForwardingGl : public Gl {
public:
    /// Passes calls on to `inner`, which must outlive this one.
    explicit ForwardingGl(Gl& inner) : inner_(inner) {}

    /// The `Gl` that finally does the work of `gl`: `gl` itself unless it forwards. Objects
    /// that may outlive a forwarding `Gl` (programs in a table shared by renderers) keep this
    /// one to be released through.
    static Gl& innermost(Gl& gl) {
        Gl* result = &gl;
        while (auto* forwarding = dynamic_cast<ForwardingGl*>(result)) {
            result = &forwarding->inner_;
        }
        return *result;
    }

#define GL_METHOD(Result, name, parameters, arguments, qualifier)                                                      \
    Result name parameters qualifier override { return inner_.name arguments; }
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD

protected:
    /// The `Gl` that does the work.
    Gl& inner_;
};

} // namespace renderer::gl
