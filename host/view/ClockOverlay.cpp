#include "host/view/ClockOverlay.h"

#include <epoxy/gl.h>

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

unsigned compile(GLenum type, const char* source) {
    const GLuint shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
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

    void read() {
        glGetIntegerv(GL_CURRENT_PROGRAM, &program);
        glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &vertexArray);
        glGetIntegerv(GL_ACTIVE_TEXTURE, &activeTexture);
        glActiveTexture(GL_TEXTURE0);
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &texture);
        glGetIntegerv(GL_SAMPLER_BINDING, &sampler);
        glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &drawFramebuffer);
        glGetIntegerv(GL_VIEWPORT, viewport.data());
        blend = glIsEnabled(GL_BLEND);
        depthTest = glIsEnabled(GL_DEPTH_TEST);
        cullFace = glIsEnabled(GL_CULL_FACE);
        scissorTest = glIsEnabled(GL_SCISSOR_TEST);
        glGetIntegerv(GL_BLEND_SRC_RGB, &blendSrcRgb);
        glGetIntegerv(GL_BLEND_DST_RGB, &blendDstRgb);
        glGetIntegerv(GL_BLEND_SRC_ALPHA, &blendSrcAlpha);
        glGetIntegerv(GL_BLEND_DST_ALPHA, &blendDstAlpha);
        glGetIntegerv(GL_BLEND_EQUATION_RGB, &blendEquationRgb);
        glGetIntegerv(GL_BLEND_EQUATION_ALPHA, &blendEquationAlpha);
    }

    static void setEnabled(GLenum cap, GLboolean on) {
        if (on) {
            glEnable(cap);
        } else {
            glDisable(cap);
        }
    }

    void restore() const {
        glUseProgram(static_cast<GLuint>(program));
        glBindVertexArray(static_cast<GLuint>(vertexArray));
        glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(texture));
        glBindSampler(0, static_cast<GLuint>(sampler));
        glActiveTexture(static_cast<GLenum>(activeTexture));
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, static_cast<GLuint>(drawFramebuffer));
        glViewport(viewport[0], viewport[1], viewport[2], viewport[3]);
        setEnabled(GL_BLEND, blend);
        setEnabled(GL_DEPTH_TEST, depthTest);
        setEnabled(GL_CULL_FACE, cullFace);
        setEnabled(GL_SCISSOR_TEST, scissorTest);
        glBlendFuncSeparate(static_cast<GLenum>(blendSrcRgb), static_cast<GLenum>(blendDstRgb),
                               static_cast<GLenum>(blendSrcAlpha), static_cast<GLenum>(blendDstAlpha));
        glBlendEquationSeparate(static_cast<GLenum>(blendEquationRgb), static_cast<GLenum>(blendEquationAlpha));
    }
};

} // namespace

ClockOverlay::ClockOverlay() = default;
ClockOverlay::~ClockOverlay() = default;

void ClockOverlay::create() {
    const GLuint vs = compile(GL_VERTEX_SHADER, kVertexSource);
    const GLuint fs = compile(GL_FRAGMENT_SHADER, kFragmentSource);
    program_ = glCreateProgram();
    glAttachShader(program_, vs);
    glAttachShader(program_, fs);
    glLinkProgram(program_);
    glDeleteShader(vs);
    glDeleteShader(fs);
    rectLocation_ = glGetUniformLocation(program_, "uRect");
    textureLocation_ = glGetUniformLocation(program_, "uPicture");

    GLuint vao = 0;
    glGenVertexArrays(1, &vao);
    vertexArray_ = vao;

    GLint previous = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &previous);
    GLuint tex = 0;
    glGenTextures(1, &tex);
    texture_ = tex;
    glBindTexture(GL_TEXTURE_2D, texture_);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(previous));
}

void ClockOverlay::setPicture(const QImage& image, const QPoint& topLeft) {
    if (image.isNull()) {
        width_ = 0;
        height_ = 0;
        return;
    }
    if (program_ == 0) {
        create();
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
    glGetIntegerv(GL_ACTIVE_TEXTURE, &previousActive);
    glActiveTexture(GL_TEXTURE0);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &previousTexture);
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &previousAlignment);
    glGetIntegerv(GL_UNPACK_ROW_LENGTH, &previousRowLength);
    glGetIntegerv(GL_PIXEL_UNPACK_BUFFER_BINDING, &previousUnpackBuffer);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, static_cast<GLint>(pixels.bytesPerLine() / 4));
    glBindTexture(GL_TEXTURE_2D, texture_);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, pixels.width(), pixels.height(), 0, GL_BGRA, GL_UNSIGNED_BYTE,
                    pixels.constBits());
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(previousTexture));
    glPixelStorei(GL_UNPACK_ALIGNMENT, previousAlignment);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, previousRowLength);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, static_cast<GLuint>(previousUnpackBuffer));
    glActiveTexture(static_cast<GLenum>(previousActive));
    width_ = pixels.width();
    height_ = pixels.height();
    topLeft_ = topLeft;
}

void ClockOverlay::draw(unsigned framebuffer, int width, int height) {
    if (!hasPicture() || width <= 0 || height <= 0) {
        return;
    }
    SavedState saved;
    saved.read();

    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    glViewport(0, 0, width, height);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glDisable(GL_SCISSOR_TEST);
    glEnable(GL_BLEND);
    glBlendFuncSeparate(GL_ONE, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glBlendEquationSeparate(GL_FUNC_ADD, GL_FUNC_ADD);
    glUseProgram(program_);
    glBindVertexArray(vertexArray_);
    glBindTexture(GL_TEXTURE_2D, texture_);
    glBindSampler(0, 0);
    glUniform1i(textureLocation_, 0);
    // Image rows go downwards, the framebuffer's y upwards: the quad's bottom-left corner sits
    // at the picture's bottom edge.
    const float x = 2.0f * static_cast<float>(topLeft_.x()) / static_cast<float>(width) - 1.0f;
    const float bottom = static_cast<float>(height - (topLeft_.y() + height_));
    const float y = 2.0f * bottom / static_cast<float>(height) - 1.0f;
    const float w = 2.0f * static_cast<float>(width_) / static_cast<float>(width);
    const float h = 2.0f * static_cast<float>(height_) / static_cast<float>(height);
    glUniform4f(rectLocation_, x, y, w, h);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);

    saved.restore();
}

void ClockOverlay::release() {
    if (program_ != 0) {
        glDeleteProgram(program_);
        GLuint vao = vertexArray_;
        glDeleteVertexArrays(1, &vao);
        GLuint tex = texture_;
        glDeleteTextures(1, &tex);
    }
    program_ = 0;
    vertexArray_ = 0;
    texture_ = 0;
    width_ = 0;
    height_ = 0;
}

} // namespace host::view
