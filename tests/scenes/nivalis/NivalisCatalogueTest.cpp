// The Nivalis catalogue: asset lists in loading order, the kept oddities of the texture and
// shader tables, the colours of the four times of day, the animals, ships, cameras and timers.

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "engine/IllegalStateError.h"
#include "engine/timers/TimersMap.h"
#include "scenes/nivalis/Animations.h"
#include "scenes/nivalis/Cameras.h"
#include "scenes/nivalis/Colors.h"
#include "scenes/nivalis/Meshes.h"
#include "scenes/nivalis/NivalisSettings.h"
#include "scenes/nivalis/Penguins.h"
#include "scenes/nivalis/Seals.h"
#include "scenes/nivalis/Shaders.h"
#include "scenes/nivalis/ShipsConfig.h"
#include "scenes/nivalis/Textures.h"
#include "scenes/nivalis/Timers.h"

namespace {

using namespace scenes::nivalis;
using engine::AttributeType;
using engine::MeshAttribute;
using engine::MeshAttributes;
using engine::TextureFiltering;
using engine::TextureFormat;
using engine::TextureWrapping;
using engine::VertexFormat;
using engine::math::Vec4;

TEST(NivalisMeshes, ListIsInLoadingOrderWithNameEqualToFileName) {
    const std::vector<std::string> expected{"sun",      "sun2",          "mountains1",    "mountains_distant1",
                                            "water_test", "sky",         "stars",         "clouds",
                                            "bird1",    "ship",          "penguin-idle",  "penguin-idle2",
                                            "seal-idle", "animals_sleeping"};
    const auto& meshes = Meshes::shared().meshes;
    ASSERT_EQ(meshes.size(), expected.size());
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        EXPECT_EQ(meshes[i]->name, expected[i]);
        EXPECT_EQ(meshes[i]->fileName, expected[i]);
    }
}

TEST(NivalisMeshes, LayoutsMatchTheModelFiles) {
    const Meshes& m = Meshes::shared();
    EXPECT_EQ(*m.meshShip->attributes, MeshAttributes({MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                                                       MeshAttribute(AttributeType::U0, VertexFormat::HALF, 6)},
                                                      8));
    EXPECT_EQ(*m.meshSky->attributes, MeshAttributes({MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0),
                                                      MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 12)},
                                                     16));
    EXPECT_EQ(*m.meshWater->attributes, MeshAttributes({MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0),
                                                        MeshAttribute(AttributeType::UV0, VertexFormat::HALF2, 6)},
                                                       12));
    EXPECT_EQ(*m.meshClouds->attributes,
              MeshAttributes({MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0),
                              MeshAttribute(AttributeType::U0, VertexFormat::UBYTE_NORMALIZED, 12)},
                             16));
    EXPECT_EQ(*m.meshStars->attributes,
              MeshAttributes({MeshAttribute(AttributeType::VERTEX, VertexFormat::FLOAT3, 0)}, 12));
    // The animals' layout keeps its stride of 4 beside a FLOAT2 attribute.
    EXPECT_EQ(*m.meshSeal->attributes, MeshAttributes({MeshAttribute(AttributeType::UV0, VertexFormat::FLOAT2, 0)}, 4));
    EXPECT_EQ(m.meshPenguinIdle->attributes, m.meshSeal->attributes);
    // The bird has no vertex stream at all.
    EXPECT_EQ(m.meshBird->attributes, nullptr);
    // The half-precision vertex-only layout exists but no mesh uses it.
    EXPECT_EQ(*m.attribsVertexOnlyFp16, MeshAttributes({MeshAttribute(AttributeType::VERTEX, VertexFormat::HALF3, 0)}, 8));
    for (const auto& mesh : m.meshes) {
        EXPECT_NE(mesh->attributes, m.attribsVertexOnlyFp16) << mesh->name;
    }
}

TEST(NivalisTextures, TableKeepsItsThreeOddities) {
    const Textures& t = Textures::shared();
    ASSERT_EQ(t.textures.size(), 15u);
    // The water's mipmapped filter sits in magFilter.
    EXPECT_EQ(t.texWater->minFilter, TextureFiltering::LINEAR);
    EXPECT_EQ(t.texWater->magFilter, TextureFiltering::LINEAR_MIPMAP_LINEAR);
    EXPECT_EQ(t.texWater->mipmaps, 6);
    EXPECT_EQ(t.texWater->format, TextureFormat::ASTC);
    // Two textures of one name, told apart by object and file.
    EXPECT_EQ(t.texPenguinIdle2->name, "penguin-idle");
    EXPECT_EQ(t.texPenguinIdle->name, "penguin-idle");
    EXPECT_NE(t.texPenguinIdle, t.texPenguinIdle2);
    EXPECT_EQ(t.texPenguinIdle->fileName, "penguin/idle/animal.rgba.fp16");
    EXPECT_EQ(t.texPenguinIdle2->fileName, "penguin/idle2/animal.rgba.fp16");
    // Vertex data repeated and read by nearest texel.
    for (const auto& texture : {t.texBird, t.texPenguinIdle, t.texPenguinIdle2, t.texSealIdle, t.texSealWalk}) {
        EXPECT_EQ(texture->wrapping, TextureWrapping::REPEAT) << texture->fileName;
        EXPECT_EQ(texture->minFilter, TextureFiltering::NEAREST) << texture->fileName;
        EXPECT_EQ(texture->magFilter, TextureFiltering::NEAREST) << texture->fileName;
        EXPECT_EQ(texture->format, TextureFormat::RGBA16F) << texture->fileName;
    }
}

TEST(NivalisTextures, AnimationTexturesHaveTheirSizesAndFiles) {
    const Textures& t = Textures::shared();
    struct Expected {
        std::shared_ptr<engine::Texture> texture;
        const char* name;
        const char* fileName;
        int width;
        int height;
    };
    for (const Expected& e : {Expected{t.texBird, "bird", "bird.rgba.fp16", 133, 4},
                              Expected{t.texPenguinIdle, "penguin-idle", "penguin/idle/animal.rgba.fp16", 341, 16},
                              Expected{t.texPenguinIdle2, "penguin-idle", "penguin/idle2/animal.rgba.fp16", 238, 11},
                              Expected{t.texSealIdle, "seal-idle", "seal/idle/animal.rgba.fp16", 263, 10},
                              Expected{t.texSealWalk, "seal-walk", "seal/walk/animal.rgba.fp16", 263, 13}}) {
        EXPECT_EQ(e.texture->name, e.name);
        EXPECT_EQ(e.texture->fileName, e.fileName);
        EXPECT_EQ(e.texture->width, e.width) << e.fileName;
        EXPECT_EQ(e.texture->height, e.height) << e.fileName;
    }
}

TEST(NivalisTextures, PalettesAndSkiesFollowTheTimeOfDayOrder) {
    const Textures& t = Textures::shared();
    const std::vector<std::string> palettes{"palette-day", "palette-night", "palette-sunrise", "palette-sunset"};
    const std::vector<std::string> skies{"sky-day", "sky-night", "sky-sunrise", "sky-sunset"};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(t.palettes[i]->fileName, palettes[i]);
        EXPECT_EQ(t.palettes[i]->format, TextureFormat::RGBA8);
        EXPECT_EQ(t.palettes[i]->minFilter, TextureFiltering::NEAREST);
        EXPECT_EQ(t.palettes[i]->wrapping, TextureWrapping::CLAMP_TO_EDGE);
        EXPECT_EQ(t.skies[i]->fileName, skies[i]);
        EXPECT_EQ(t.skies[i]->minFilter, TextureFiltering::LINEAR);
        EXPECT_EQ(t.skies[i]->wrapping, TextureWrapping::CLAMP_TO_EDGE);
    }
    EXPECT_EQ(t.textures.front(), t.texPaletteDay);
    EXPECT_EQ(t.textures[8], t.texNoise);
    EXPECT_EQ(t.texNoise->fileName, "blue-noise-16");
    EXPECT_EQ(t.texNoise->magFilter, TextureFiltering::NEAREST);
    EXPECT_EQ(t.textures.back(), t.texSealWalk);
}

TEST(NivalisShaders, TenRecordsWithOneNameTwice) {
    const Shaders& s = Shaders::shared();
    const std::vector<std::string> expected{"Diffuse",   "Palette", "DiffuseZFog",
                                            "CausticsWater", "SkyDither", "Color",
                                            "ColorAnimatedTextureChunked", "Cloud",
                                            "ColorAnimatedTextureChunked", "DiffuseAnimatedTextureChunked"};
    ASSERT_EQ(s.shaders.size(), expected.size());
    std::set<const engine::Shader*> distinct;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(s.shaders[i]->name, expected[i]);
        distinct.insert(s.shaders[i].get());
    }
    EXPECT_EQ(distinct.size(), 10u);
    EXPECT_EQ(s.shaders[6], s.shaderColorAnimatedTextureChunked);
    EXPECT_EQ(s.shaders[8], s.shaderAnimated);
}

TEST(NivalisColors, FourMoodsWithTheirFlags) {
    const auto& colors = Colors::shared().COLORS;
    ASSERT_EQ(colors.size(), 4u);
    const SceneColors& day = colors[static_cast<int>(TimeOfDay::Day)];
    const SceneColors& night = colors[static_cast<int>(TimeOfDay::Night)];
    const SceneColors& sunrise = colors[static_cast<int>(TimeOfDay::Sunrise)];
    const SceneColors& sunset = colors[static_cast<int>(TimeOfDay::Sunset)];
    EXPECT_TRUE(day.isDay && !day.isLowSun && day.drawBirds);
    EXPECT_TRUE(!night.isDay && !night.isLowSun && !night.drawBirds);
    EXPECT_TRUE(sunrise.isDay && sunrise.isLowSun && sunrise.drawBirds);
    EXPECT_TRUE(sunset.isDay && sunset.isLowSun && !sunset.drawBirds);
}

TEST(NivalisColors, ComponentsAreBytesOver255WithTheirAlphas) {
    const auto& colors = Colors::shared().COLORS;
    const SceneColors& day = colors[0];
    EXPECT_FLOAT_EQ(day.birds.r(), 80.0f / 255.0f);
    EXPECT_FLOAT_EQ(day.birds.a(), 1.0f);
    EXPECT_FLOAT_EQ(day.waterColorNear.g(), 161.0f / 255.0f);
    EXPECT_FLOAT_EQ(day.waterColorNear.a(), 0.0f);
    EXPECT_EQ(day.distantZFogColor, Vec4(1.0f, 1.0f, 1.0f, 0.75f));
    // Night birds are pure red; sunset stars are the opaque white of the night, sunrise keeps the day's.
    EXPECT_EQ(colors[1].birds, Vec4(1.0f, 0.0f, 0.0f, 1.0f));
    EXPECT_EQ(colors[3].stars, Vec4(1.0f, 1.0f, 1.0f, 1.0f));
    EXPECT_EQ(colors[1].stars, colors[3].stars);
    EXPECT_EQ(colors[2].stars, colors[0].stars);
    EXPECT_FLOAT_EQ(colors[2].stars.a(), 0.3f);
    EXPECT_FLOAT_EQ(colors[3].clouds.b(), 128.0f / 255.0f);
    EXPECT_FLOAT_EQ(colors[3].clouds.a(), 0.3f);
    EXPECT_FLOAT_EQ(colors[2].waterColorFar.r(), 217.0f / 255.0f);
    EXPECT_FLOAT_EQ(colors[1].distantZFogColor.b(), 156.0f / 255.0f);
    // Sunset differs from sunrise in every colour.
    EXPECT_NE(colors[2].birds, colors[3].birds);
    EXPECT_NE(colors[2].clouds, colors[3].clouds);
    EXPECT_NE(colors[2].waterColorNear, colors[3].waterColorNear);
    EXPECT_NE(colors[2].waterColorFar, colors[3].waterColorFar);
    EXPECT_NE(colors[2].distantZFogColor, colors[3].distantZFogColor);
}

TEST(NivalisColors, SceneColorsIsAValueWithItsTextForm) {
    const Vec4 a(1.0f, 0.0f, 0.5f, 0.25f);
    const SceneColors colors(true, false, true, a, a, a, a, a, a);
    EXPECT_EQ(colors.toString(),
              "SceneColors(isDay=true, isLowSun=false, drawBirds=true, "
              "birds=Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25), clouds=Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25), "
              "stars=Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25), waterColorNear=Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25), "
              "waterColorFar=Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25), "
              "distantZFogColor=Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25))");
    SceneColors same = colors;
    EXPECT_EQ(same, colors);
    EXPECT_EQ(same.hash(), colors.hash());
    EXPECT_EQ(std::hash<SceneColors>{}(same), colors.hash());
    // The stored-but-unread fields still take part in equality.
    SceneColors otherBirds = colors;
    otherBirds.drawBirds = false;
    EXPECT_NE(otherBirds, colors);
    SceneColors otherColor = colors;
    otherColor.birds.b() = 0.75f;
    EXPECT_NE(otherColor, colors);
    EXPECT_NE(Colors::shared().COLORS[2], Colors::shared().COLORS[3]);
}

TEST(NivalisAnimations, OneChunkEachAndOneRowMoreThanPoses) {
    const Animations& a = Animations::shared();
    struct Expected {
        const engine::animation::TextureAnimationChunked* animation;
        int width;
        int frames;
        int height;
    };
    for (const Expected& e : {Expected{&a.animationBird, 133, 3, 4}, Expected{&a.animationPenguinIdle, 341, 15, 16},
                              Expected{&a.animationPenguinIdle2, 238, 10, 11}, Expected{&a.animationSealIdle, 263, 9, 10},
                              Expected{&a.animationSealWalk, 263, 12, 13}}) {
        EXPECT_EQ(e.animation->textureWidth(), e.width);
        EXPECT_EQ(e.animation->frames(), e.frames);
        EXPECT_EQ(e.animation->textureHeight(), e.height);
        EXPECT_FLOAT_EQ(e.animation->chunkSize(), 1.0f);
    }
    // The textures and the animations agree on their sizes.
    const Textures& t = Textures::shared();
    EXPECT_EQ(t.texSealWalk->height, a.animationSealWalk.textureHeight());
    EXPECT_EQ(t.texPenguinIdle2->width, a.animationPenguinIdle2.textureWidth());
}

TEST(NivalisAnimals, PenguinsAndSealsStandWhereTheTablesSay) {
    const auto& idle = Penguins::shared().IDLE;
    const auto& idle2 = Penguins::shared().IDLE2;
    ASSERT_EQ(idle.size(), 9u);
    ASSERT_EQ(idle2.size(), 6u);
    EXPECT_FLOAT_EQ(idle[0].position.x, -10793.156f);
    EXPECT_FLOAT_EQ(idle[0].rotation.z, -160.0f);
    EXPECT_FLOAT_EQ(idle[7].animTimerOffset, 0.8f);
    EXPECT_FLOAT_EQ(idle[8].position.y, 8932.688f);
    EXPECT_FLOAT_EQ(idle2[5].position.z, 65.833f);
    EXPECT_FLOAT_EQ(idle2[1].rotation.z, -135.0f);
    for (const auto& penguin : idle) {
        EXPECT_EQ(penguin.rotation.x, 0.0f);
        EXPECT_EQ(penguin.rotation.y, 0.0f);
    }

    const auto& seals = Seals::shared().IDLE;
    ASSERT_EQ(seals.size(), 8u);
    EXPECT_FLOAT_EQ(seals[0].scale, 21.6f);
    EXPECT_FLOAT_EQ(seals[0].rotation.z, 305.0f);
    EXPECT_FLOAT_EQ(seals[3].position.x, -8848.467f);
    for (const auto& seal : seals) {
        EXPECT_FLOAT_EQ(seal.position.z, 163.703f);
    }
}

TEST(NivalisAnimals, WalkingSealsFollowClosedLoopsOfTwelveKnots) {
    const auto& walking = Seals::shared().WALKING;
    ASSERT_EQ(walking.size(), 3u);
    EXPECT_FLOAT_EQ(walking[0].scale, 25.0f);
    EXPECT_FLOAT_EQ(walking[2].animTimerOffset, 0.88f);
    for (const auto& seal : walking) {
        ASSERT_NE(seal.spline, nullptr);
        EXPECT_EQ(seal.spline->splineX.y.size(), 12u);
        EXPECT_EQ(seal.spline->splineY.y.size(), 12u);
        EXPECT_EQ(seal.spline->splineZ.y.size(), 12u);
        for (double z : seal.spline->splineZ.y) {
            EXPECT_DOUBLE_EQ(z, 204.81567);
        }
        // The first four points come round again at the end.
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_DOUBLE_EQ(seal.spline->splineX.y[i], seal.spline->splineX.y[8 + i]);
        }
    }
    // The path parameter starts at the third point of the loop: for seal 1, (-11045.88, -9073.043).
    const auto& start = walking[1].spline->getCurrentPoint(0.0);
    EXPECT_FLOAT_EQ(start.x, -11045.88f);
    EXPECT_FLOAT_EQ(start.y, -9073.043f);
}

TEST(NivalisShips, CoursesOfUnequalLengthsOnTheSeaPlane) {
    const auto& ships = ShipsConfig::shared().SHIPS;
    const std::size_t knots[3] = {32, 31, 37};
    const float scales[3] = {1.1f, 1.7f, 1.4f};
    const float offsets[3] = {0.4f, 0.6f, 0.88f};
    for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_NE(ships[i].spline, nullptr);
        EXPECT_EQ(ships[i].spline->splineX.y.size(), knots[i]);
        EXPECT_EQ(ships[i].spline->splineY.y.size(), knots[i]);
        EXPECT_EQ(ships[i].spline->splineZ.y.size(), knots[i]);
        EXPECT_FLOAT_EQ(ships[i].scale, scales[i]);
        EXPECT_FLOAT_EQ(ships[i].animTimerOffset, offsets[i]);
        for (double z : ships[i].spline->splineZ.y) {
            EXPECT_EQ(z, 0.0);
        }
    }
    // Ship 2's course starts at its third point and its last listed point is its 33rd.
    EXPECT_DOUBLE_EQ(ships[2].spline->splineX.y[2], -16359.059);
    EXPECT_DOUBLE_EQ(ships[2].spline->splineY.y[32], -19621.877);
    EXPECT_DOUBLE_EQ(ships[2].spline->splineY.y[33], -22554.523);
    EXPECT_DOUBLE_EQ(ships[1].spline->splineX.y[26], 219.0332);
    EXPECT_DOUBLE_EQ(ships[0].spline->splineY.y[27], 975.02954);
}

TEST(NivalisCameras, NinePathsLookingAtTheirTargets) {
    const auto& cameras = Cameras::shared().CAMERAS;
    ASSERT_EQ(cameras.size(), 9u);
    for (std::size_t i = 0; i < cameras.size(); ++i) {
        EXPECT_FLOAT_EQ(cameras[i]->speedMultiplier, 1.0f);
        const float targetZ = cameras[i]->start.rotation.z;
        if (i == 0 || i == 1 || i == 7 || i == 8) {
            EXPECT_FLOAT_EQ(targetZ, 886.872f) << i;
        } else if (i >= 2 && i <= 5) {
            EXPECT_FLOAT_EQ(targetZ, 156.916f) << i;
        } else {
            EXPECT_GT(targetZ, 3000.0f) << i;
        }
    }
    EXPECT_FLOAT_EQ(cameras[0]->start.position.x, -20834.791f);
    EXPECT_FLOAT_EQ(cameras[4]->end.position.z, 2864.12f);
    EXPECT_FLOAT_EQ(cameras[8]->end.rotation.y, -4323.603f);
}

TEST(NivalisTimers, ThirteenRotatingTimersWithTheirPeriods) {
    engine::timers::TimersMap timers;
    initializeTimers(timers);
    EXPECT_EQ(timers.size(), 13u);
    const std::pair<Timers, float> periods[] = {
        {Timers::Water, 720000.0f},      {Timers::WaterLarge, 60000.0f},    {Timers::CloudsRotation, 300000.0f},
        {Timers::CloudsAnimation, 15000.0f}, {Timers::BirdWings1, 1000.0f}, {Timers::BirdWings2, 900.0f},
        {Timers::BirdsFly, 75000.0f},    {Timers::Ships, 200000.0f},        {Timers::PenguinIdle, 5000.0f},
        {Timers::PenguinIdle2, 5000.0f}, {Timers::SealIdleAnim, 4000.0f},   {Timers::SealWalkAnim, 1900.0f},
        {Timers::SealWalkSpline, 114000.0f},
    };
    for (const auto& [key, period] : periods) {
        EXPECT_EQ(timers.params(key).period, period) << toString(key);
        EXPECT_TRUE(timers.params(key).rotating) << toString(key);
        EXPECT_EQ(timers.get(key), 0.0f);
    }
    // The camera keeps its own clock: its key is never added.
    EXPECT_THROW(timers.get(Timers::Camera), engine::IllegalStateError);
}

TEST(NivalisEnumerations, NamesAndOrder) {
    EXPECT_EQ(TIME_OF_DAY_ENTRIES.size(), 4u);
    EXPECT_EQ(toString(TimeOfDay::Sunrise), "Sunrise");
    EXPECT_EQ(static_cast<int>(TimeOfDay::Sunset), 3);
    EXPECT_EQ(TIMERS_ENTRIES.size(), 14u);
    EXPECT_EQ(toString(Timers::SealWalkSpline), "SealWalkSpline");
    EXPECT_EQ(static_cast<int>(Timers::CloudsAnimation), 3);
    EXPECT_EQ(toString(TIMERS_ENTRIES[8]), "Ships");
}

TEST(NivalisSettingsRecord, Defaults) {
    const NivalisSettings settings;
    EXPECT_EQ(settings.timeOfDay, TimeOfDay::Day);
    EXPECT_EQ(settings.cameraPeriod, 1.0f);
    EXPECT_TRUE(settings.vignette);
    EXPECT_FALSE(settings.blurred);
    EXPECT_TRUE(settings.autoSwitchCameras);
    EXPECT_FALSE(settings.clock);
    EXPECT_FALSE(settings.lowQuality);
}

} // namespace
