#include "renderer/headless/OffscreenTarget.h"

#include <epoxy/gl.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace renderer::headless {

OffscreenTarget::OffscreenTarget(int width, int height) : width_(width), height_(height) {
    GLint maxSize = 0;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &maxSize);
    if (width < 1 || height < 1 || width > maxSize || height > maxSize) {
        throw std::invalid_argument("Invalid offscreen size " + std::to_string(width) + "x" + std::to_string(height));
    }
    // Creating the target leaves the caller's bindings as they were.
    GLint previous = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &previous);
    GLint previousTexture = 0;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &previousTexture);
    GLint previousRenderbuffer = 0;
    glGetIntegerv(GL_RENDERBUFFER_BINDING, &previousRenderbuffer);

    glGenTextures(1, &colorTexture_);
    glBindTexture(GL_TEXTURE_2D, colorTexture_);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAX_LEVEL, 0);
    glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(previousTexture));

    glGenRenderbuffers(1, &depthBuffer_);
    glBindRenderbuffer(GL_RENDERBUFFER, depthBuffer_);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT32F, width, height);
    glBindRenderbuffer(GL_RENDERBUFFER, static_cast<GLuint>(previousRenderbuffer));

    glGenFramebuffers(1, &framebuffer_);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, colorTexture_, 0);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, depthBuffer_);
    const GLenum status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
    glBindFramebuffer(GL_FRAMEBUFFER, static_cast<GLuint>(previous));
    if (status != GL_FRAMEBUFFER_COMPLETE) {
        glDeleteFramebuffers(1, &framebuffer_);
        glDeleteRenderbuffers(1, &depthBuffer_);
        glDeleteTextures(1, &colorTexture_);
        throw std::runtime_error("Offscreen framebuffer incomplete: status " + std::to_string(status));
    }
}

OffscreenTarget::~OffscreenTarget() {
    glDeleteFramebuffers(1, &framebuffer_);
    glDeleteRenderbuffers(1, &depthBuffer_);
    glDeleteTextures(1, &colorTexture_);
}

void OffscreenTarget::bind() const {
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_);
    glViewport(0, 0, width_, height_);
}

void OffscreenTarget::clear(float red, float green, float blue, float alpha) const {
    bind();
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glDisable(GL_SCISSOR_TEST);
    glClearColor(red, green, blue, alpha);
    glClearDepth(1.0);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

std::vector<std::uint8_t> OffscreenTarget::readPixels() const {
    const std::size_t rowBytes = static_cast<std::size_t>(width_) * 4;
    std::vector<std::uint8_t> pixels(rowBytes * static_cast<std::size_t>(height_));
    GLint previous = 0;
    glGetIntegerv(GL_READ_FRAMEBUFFER_BINDING, &previous);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer_);
    glReadBuffer(GL_COLOR_ATTACHMENT0);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(previous));
    // GL's first row is the bottom one; images start at the top.
    std::vector<std::uint8_t> row(rowBytes);
    for (int y = 0; y < height_ / 2; ++y) {
        std::uint8_t* top = pixels.data() + static_cast<std::size_t>(y) * rowBytes;
        std::uint8_t* bottom = pixels.data() + static_cast<std::size_t>(height_ - 1 - y) * rowBytes;
        std::memcpy(row.data(), top, rowBytes);
        std::memcpy(top, bottom, rowBytes);
        std::memcpy(bottom, row.data(), rowBytes);
    }
    return pixels;
}

} // namespace renderer::headless
