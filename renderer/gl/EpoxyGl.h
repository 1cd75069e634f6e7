#pragma once

#include "renderer/gl/Gl.h"

namespace renderer::gl {

/// `Gl` on the OpenGL context that is current on the calling thread, with functions loaded by
/// libepoxy. Uploads go through a texture unit of their own (the last one the context has) and
/// through GL_COPY_WRITE_BUFFER, so they leave the bindings that drawing uses alone.
class EpoxyGl final : public Gl {
public:
    /// Binds to the context current now; it must be OpenGL 3.3 core or newer.
    EpoxyGl();

#define GL_METHOD(Result, name, parameters, arguments, qualifier) Result name parameters qualifier override;
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD

private:
    /// Makes `unit` the active texture unit.
    void activeTexture(GLuint unit);
    /// Binds `texture` on the upload unit, where loading cannot disturb a draw's bindings.
    void bindForUpload(GLuint texture);

    int version_ = 0;
    bool invalidateSupported_ = false;
    GLuint uploadUnit_ = 0;
};

} // namespace renderer::gl
