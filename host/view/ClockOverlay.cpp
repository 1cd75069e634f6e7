#include "host/view/ClockOverlay.h"

#include <QOpenGLExtraFunctions>

#include <array>

namespace host::view {

namespace {

// A quad from the vertex id alone (a triangle strip of four), placed by a rectangle in
// normalised device coordinates; texture rows run top to bottom like the image's.
const char* kVertexSource = R"(#version 330 core
uniform vec4 uRect;
out vec2 vTexCoord;
void main() {
    vec2 corner = vec2(float(gl_VertexID & 1), float((gl_VertexID >> 1) & 1));
    vTexCoord = vec2(corner.x, 1.0 - corner.y);
    gl_Position = vec4(uRect.xy + corner * uRect.zw, 0.0, 1.0);
}
)";

const char* kFragmentSource = R"(#version 330 core
uniform sampler2D uPicture;
in vec2 vTexCoord;
out vec4 fragColor;
void main() {
    fragColor = texture(uPicture, vTexCoord);
}
)";

unsigned compile(QOpenGLExtraFunctions& gl, GLenum type, const char* source) {
    const GLuint shader = gl.glCreateShader(type);
    gl.glShaderSource(shader, 1, &source, nullptr);
    gl.glCompileShader(shader);
    return shader;
}

// Everything the overlay changes, read before drawing and put back after.
struct SavedState {
    GLint program = 0;
    GLint vertexArray = 0;
    GLint activeTexture = 0;
    GLint texture = 0;
    GLint sampler = 0;
    GLint drawFramebuffer = 0;
    std::array<GLint, 4> viewport{};
    GLboolean blend = GL_FALSE;
    GLboolean depthTest = GL_FALSE;
    GLboolean cullFace = GL_FALSE;
    GLboolean scissorTest = GL_FALSE;
    GLint blendSrcRgb = 0;
    GLint blendDstRgb = 0;
    GLint blendSrcAlpha = 0;
    GLint blendDstAlpha = 0;
    GLint blendEquationRgb = 0;
    GLint blendEquationAlpha = 0;

    void read(QOpenGLExtraFunctions& gl) {
        gl.glGetIntegerv(GL_CURRENT_PROGRAM, &program);
        gl.glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &vertexArray);
        gl.glGetIntegerv(GL_ACTIVE_TEXTURE, &activeTexture);
        gl.glActiveTexture(GL_TEXTURE0);
        gl.glGetIntegerv(GL_TEXTURE_BINDING_2D, &texture);
        gl.glGetIntegerv(GL_SAMPLER_BINDING, &sampler);
        gl.glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &drawFramebuffer);
        gl.glGetIntegerv(GL_VIEWPORT, viewport.data());
        blend = gl.glIsEnabled(GL_BLEND);
        depthTest = gl.glIsEnabled(GL_DEPTH_TEST);
        cullFace = gl.glIsEnabled(GL_CULL_FACE);
        scissorTest = gl.glIsEnabled(GL_SCISSOR_TEST);
        gl.glGetIntegerv(GL_BLEND_SRC_RGB, &blendSrcRgb);
        gl.glGetIntegerv(GL_BLEND_DST_RGB, &blendDstRgb);
        gl.glGetIntegerv(GL_BLEND_SRC_ALPHA, &blendSrcAlpha);
        gl.glGetIntegerv(GL_BLEND_DST_ALPHA, &blendDstAlpha);
        gl.glGetIntegerv(GL_BLEND_EQUATION_RGB, &blendEquationRgb);
        gl.glGetIntegerv(GL_BLEND_EQUATION_ALPHA, &blendEquationAlpha);
    }

    static void setEnabled(QOpenGLExtraFunctions& gl, GLenum cap, GLboolean on) {
        if (on) {
            gl.glEnable(cap);
        } else {
            gl.glDisable(cap);
        }
    }

    void restore(QOpenGLExtraFunctions& gl) const {
        gl.glUseProgram(static_cast<GLuint>(program));
        gl.glBindVertexArray(static_cast<GLuint>(vertexArray));
        gl.glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(texture));
        gl.glBindSampler(0, static_cast<GLuint>(sampler));
        gl.glActiveTexture(static_cast<GLenum>(activeTexture));
        gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(drawFramebuffer));
        gl.glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
        setEnabled(gl, GL_BLEND, blend);
        setEnabled(gl, GL_DEPTH_TEST, depthTest);
        setEnabled(gl, GL_CULL_FACE, cullFace);
        setEnabled(gl, GL_SCISSOR_TEST, scissorTest);
        gl.glBlendFuncSeparate(static_cast<GLenum>(blendSrcRgb), static_cast<GLenum>(blendDstRgb),
                               static_cast<GLenum>(blendSrcAlpha), static_cast<GLenum>(blendDstAlpha));
        gl.glBlendEquationSeparate(static_cast<GLenum>(blendEquationRgb), static_cast<GLenum>(blendEquationAlpha));
    }
};

} // namespace

ClockOverlay::ClockOverlay() = default;
ClockOverlay::~ClockOverlay() = default;

void ClockOverlay::create(QOpenGLExtraFunctions& gl) {
    const GLuint vs = compile(gl, GL_VERTEX_SHADER, kVertexSource);
    const GLuint fs = compile(gl, GL_FRAGMENT_SHADER, kFragmentSource);
    program_ = gl.glCreateProgram();
    gl.glAttachShader(program_, vs);
    gl.glAttachShader(program_, fs);
    gl.glLinkProgram(program_);
    gl.glDeleteShader(vs);
    gl.glDeleteShader(fs);
    rectLocation_ = gl.glGetUniformLocation(program_, "uRect");
    textureLocation_ = gl.glGetUniformLocation(program_, "uPicture");

    GLuint vao = 0;
    gl.glGenVertexArrays(1, &vao);
    vertexArray_ = vao;

    GLint previous = 0;
    gl.glGetIntegerv(GL_TEXTURE_BINDING_2D, &previous);
    GLuint tex = 0;
    gl.glGenTextures(1, &tex);
    texture_ = tex;
    gl.glBindTexture(GL_TEXTURE_2D, texture_);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    gl.glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(previous));
}

void ClockOverlay::setPicture(QOpenGLExtraFunctions& gl, const QImage& image, const QPoint& topLeft) {
    if (image.isNull()) {
        width_ = 0;
        height_ = 0;
        return;
    }
    if (program_ == 0) {
        create(gl);
    }
    // ARGB32 in memory on a little-endian machine is B, G, R, A: uploaded as BGRA.
    const QImage pixels = image.format() == QImage::Format_ARGB32_Premultiplied
                              ? image
                              : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    GLint previousTexture = 0;
    GLint previousActive = 0;
    GLint previousAlignment = 0;
    GLint previousRowLength = 0;
    GLint previousUnpackBuffer = 0;
    gl.glGetIntegerv(GL_ACTIVE_TEXTURE, &previousActive);
    gl.glActiveTexture(GL_TEXTURE0);
    gl.glGetIntegerv(GL_TEXTURE_BINDING_2D, &previousTexture);
    gl.glGetIntegerv(GL_UNPACK_ALIGNMENT, &previousAlignment);
    gl.glGetIntegerv(GL_UNPACK_ROW_LENGTH, &previousRowLength);
    gl.glGetIntegerv(GL_PIXEL_UNPACK_BUFFER_BINDING, &previousUnpackBuffer);
    gl.glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    gl.glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    gl.glPixelStorei(GL_UNPACK_ROW_LENGTH, static_cast<GLint>(pixels.bytesPerLine() / 4));
    gl.glBindTexture(GL_TEXTURE_2D, texture_);
    gl.glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, pixels.width(), pixels.height(), 0, GL_BGRA, GL_UNSIGNED_BYTE,
                    pixels.constBits());
    gl.glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(previousTexture));
    gl.glPixelStorei(GL_UNPACK_ALIGNMENT, previousAlignment);
    gl.glPixelStorei(GL_UNPACK_ROW_LENGTH, previousRowLength);
    gl.glBindBuffer(GL_PIXEL_UNPACK_BUFFER, static_cast<GLuint>(previousUnpackBuffer));
    gl.glActiveTexture(static_cast<GLenum>(previousActive));
    width_ = pixels.width();
    height_ = pixels.height();
    topLeft_ = topLeft;
}

void ClockOverlay::draw(QOpenGLExtraFunctions& gl, unsigned framebuffer, int width, int height) {
    if (!hasPicture() || width <= 0 || height <= 0) {
        return;
    }
    SavedState saved;
    saved.read(gl);

    gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    gl.glViewport(0, 0, width, height);
    gl.glDisable(GL_DEPTH_TEST);
    gl.glDisable(GL_CULL_FACE);
    gl.glDisable(GL_SCISSOR_TEST);
    gl.glEnable(GL_BLEND);
    gl.glBlendFuncSeparate(GL_ONE, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    gl.glBlendEquationSeparate(GL_FUNC_ADD, GL_FUNC_ADD);
    gl.glUseProgram(program_);
    gl.glBindVertexArray(vertexArray_);
    gl.glBindTexture(GL_TEXTURE_2D, texture_);
    gl.glBindSampler(0, 0);
    gl.glUniform1i(textureLocation_, 0);
    // Image rows go downwards, the framebuffer's y upwards: the quad's bottom-left corner sits
    // at the picture's bottom edge.
    const float x = 2.0f * static_cast<float>(topLeft_.x()) / static_cast<float>(width) - 1.0f;
    const float bottom = static_cast<float>(height - (topLeft_.y() + height_));
    const float y = 2.0f * bottom / static_cast<float>(height) - 1.0f;
    const float w = 2.0f * static_cast<float>(width_) / static_cast<float>(width);
    const float h = 2.0f * static_cast<float>(height_) / static_cast<float>(height);
    gl.glUniform4f(rectLocation_, x, y, w, h);
    gl.glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);

    saved.restore(gl);
}

void ClockOverlay::release(QOpenGLExtraFunctions& gl) {
    if (program_ != 0) {
        gl.glDeleteProgram(program_);
        GLuint vao = vertexArray_;
        gl.glDeleteVertexArrays(1, &vao);
        GLuint tex = texture_;
        gl.glDeleteTextures(1, &tex);
    }
    program_ = 0;
    vertexArray_ = 0;
    texture_ = 0;
    width_ = 0;
    height_ = 0;
}

} // namespace host::view
