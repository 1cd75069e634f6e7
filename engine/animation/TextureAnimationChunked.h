#pragma once

#include <cstdint>

namespace engine::animation {

/// Arithmetic of vertex animation baked into a floating-point texture: each texel of a row is
/// one vertex's position in one frame. A mesh with more vertices than a row holds is cut into
/// chunks of `textureWidth` vertices; the texture is `chunks` blocks of `frames` + 1 rows, and
/// block k starts at k * chunkSize of its height. The two animate operations turn a phase from 0
/// to 1 into the coordinate of the centre of the row to read, so that a nearest filter never
/// blends two frames.
class TextureAnimationChunked {
public:
    /// Computes the layout for `vertices` vertices, `textureWidth` of them per row, and `frames`
    /// key poses.
    TextureAnimationChunked(std::int32_t textureWidth, std::int32_t vertices, std::int32_t frames);

    /// Row coordinate for a phase that runs through the frames once: frame 0 at 0, the last
    /// frame at 1.
    float animateStartToEnd(float timer) const;
    /// Row coordinate for a phase that runs forward to the last frame (at 0.5) and back.
    float animateStartEndStart(float timer) const;

    /// Vertices per texture row.
    std::int32_t textureWidth() const { return textureWidth_; }
    /// Number of key poses.
    std::int32_t frames() const { return frames_; }
    /// Half a texel across, in texture coordinates.
    float texelHalfWidth() const { return texelHalfWidth_; }
    /// Half a texel down, in texture coordinates.
    float texelHalfHeight() const { return texelHalfHeight_; }
    /// One texel down, in texture coordinates.
    float texelHeight() const { return texelHeight_; }
    /// Rows of the texture: chunks * (frames + 1).
    std::int32_t textureHeight() const { return textureHeight_; }
    /// Height of one chunk's block, in texture coordinates: 1 / chunks.
    float chunkSize() const { return chunkSize_; }

private:
    std::int32_t textureWidth_;
    std::int32_t frames_;
    float texelHalfWidth_;
    float texelHalfHeight_;
    float texelHeight_;
    std::int32_t textureHeight_;
    float chunkSize_;
};

} // namespace engine::animation
