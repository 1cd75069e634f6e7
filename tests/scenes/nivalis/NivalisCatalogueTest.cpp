// The Nivalis catalogue where it is more than a table: the kept oddities of the texture and shader
// tables, colours built from bytes, the value record of a time of day, the closed courses of
// ships and seals, and the timers' periods.

#include <gtest/gtest.h>

#include <set>

#include "engine/IllegalStateError.h"
#include "engine/timers/TimersMap.h"
#include "scenes/nivalis/Animations.h"
#include "scenes/nivalis/Colors.h"
#include "scenes/nivalis/Meshes.h"
#include "scenes/nivalis/Seals.h"
#include "scenes/nivalis/Shaders.h"
#include "scenes/nivalis/ShipsConfig.h"
#include "scenes/nivalis/Textures.h"
#include "scenes/nivalis/TimeOfDay.h"
#include "scenes/nivalis/Timers.h"

namespace {

using namespace scenes::nivalis;
using engine::TextureFiltering;
using engine::math::Vec4;

TEST(NivalisCatalogue, MeshesLoadInTheirOwnOrderAndTheBirdHasNoVertexStream) {
    const Meshes& m = Meshes::shared();
    ASSERT_EQ(m.meshes.size(), 14u);
    EXPECT_EQ(m.meshes.front(), m.meshSun);
    EXPECT_EQ(m.meshes[2], m.meshMountains1);
    EXPECT_EQ(m.meshes.back(), m.meshAnimalsSleeping);
    EXPECT_EQ(m.meshMountainsDistant->fileName, "mountains_distant1");
    EXPECT_EQ(m.meshBird->attributes, nullptr);
    // The animals keep a stride of 4 beside a FLOAT2 attribute.
    EXPECT_EQ(m.meshSeal->attributes->stride(), 4);
    EXPECT_EQ(m.meshSeal->attributes->attributes().at(0).format(), engine::VertexFormat::FLOAT2);
    for (const auto& mesh : m.meshes) {
        EXPECT_NE(mesh->attributes, m.attribsVertexOnlyFp16) << mesh->name;
    }
}

TEST(NivalisCatalogue, TextureTableKeepsItsThreeOddities) {
    const Textures& t = Textures::shared();
    ASSERT_EQ(t.textures.size(), 15u);
    // The water's mipmapped filter sits in magFilter.
    EXPECT_EQ(t.texWater->minFilter, TextureFiltering::LINEAR);
    EXPECT_EQ(t.texWater->magFilter, TextureFiltering::LINEAR_MIPMAP_LINEAR);
    EXPECT_EQ(t.texWater->mipmaps, 6);
    // Two textures of one name, told apart by object and file.
    EXPECT_EQ(t.texPenguinIdle2->name, t.texPenguinIdle->name);
    EXPECT_NE(t.texPenguinIdle, t.texPenguinIdle2);
    EXPECT_NE(t.texPenguinIdle->fileName, t.texPenguinIdle2->fileName);
    // Vertex data, repeated and read by nearest texel, as large as its animation says.
    const Animations& a = Animations::shared();
    const std::pair<std::shared_ptr<engine::Texture>, const engine::animation::TextureAnimationChunked*> pairs[] = {
        {t.texBird, &a.animationBird},         {t.texPenguinIdle, &a.animationPenguinIdle},
        {t.texPenguinIdle2, &a.animationPenguinIdle2}, {t.texSealIdle, &a.animationSealIdle},
        {t.texSealWalk, &a.animationSealWalk}};
    for (const auto& [texture, animation] : pairs) {
        EXPECT_EQ(texture->wrapping, engine::TextureWrapping::REPEAT) << texture->fileName;
        EXPECT_EQ(texture->minFilter, TextureFiltering::NEAREST) << texture->fileName;
        EXPECT_EQ(texture->format, engine::TextureFormat::RGBA16F) << texture->fileName;
        EXPECT_EQ(texture->width, animation->textureWidth()) << texture->fileName;
        EXPECT_EQ(texture->height, animation->textureHeight()) << texture->fileName;
        EXPECT_EQ(animation->textureHeight(), animation->frames() + 1) << texture->fileName;
    }
    // Palettes and skies are indexed by the time of day.
    EXPECT_EQ(t.palettes[static_cast<int>(TimeOfDay::Sunrise)]->fileName, "palette-sunrise");
    EXPECT_EQ(t.skies[static_cast<int>(TimeOfDay::Night)]->fileName, "sky-night");
}

TEST(NivalisCatalogue, TwoShaderRecordsShareOneName) {
    const Shaders& s = Shaders::shared();
    ASSERT_EQ(s.shaders.size(), 10u);
    std::set<const engine::Shader*> distinct;
    for (const auto& shader : s.shaders) {
        distinct.insert(shader.get());
        EXPECT_EQ(shader->id, -1);
    }
    EXPECT_EQ(distinct.size(), 10u);
    EXPECT_EQ(s.shaders[6]->name, "ColorAnimatedTextureChunked");
    EXPECT_EQ(s.shaders[8]->name, "ColorAnimatedTextureChunked");
    EXPECT_EQ(s.shaders[8], s.shaderAnimated);
    EXPECT_EQ(s.shaders.front()->name, "Diffuse");
}

TEST(NivalisCatalogue, ColoursAreBytesOver255WithTheirAlphas) {
    const auto& colors = Colors::shared().COLORS;
    EXPECT_TRUE(colors[0].isDay && !colors[0].isLowSun && colors[0].drawBirds);
    EXPECT_TRUE(!colors[1].isDay && !colors[1].isLowSun);
    EXPECT_TRUE(colors[2].isDay && colors[2].isLowSun && colors[2].drawBirds);
    EXPECT_TRUE(colors[3].isDay && colors[3].isLowSun && !colors[3].drawBirds);
    EXPECT_FLOAT_EQ(colors[0].birds.r(), 80.0f / 255.0f);
    EXPECT_FLOAT_EQ(colors[0].waterColorNear.g(), 161.0f / 255.0f);
    EXPECT_EQ(colors[0].waterColorNear.a(), 0.0f);
    EXPECT_EQ(colors[0].distantZFogColor, Vec4(1.0f, 1.0f, 1.0f, 0.75f));
    EXPECT_EQ(colors[1].birds, Vec4(1.0f, 0.0f, 0.0f, 1.0f));
    // Sunset stars are the night's opaque white; sunrise keeps the day's faint blue.
    EXPECT_EQ(colors[3].stars, colors[1].stars);
    EXPECT_EQ(colors[2].stars, colors[0].stars);
    EXPECT_FLOAT_EQ(colors[3].clouds.b(), 128.0f / 255.0f);
    EXPECT_FLOAT_EQ(colors[3].clouds.a(), 0.3f);
}

TEST(NivalisCatalogue, SceneColorsIsAValueWithItsTextForm) {
    const Vec4 a(1.0f, 0.0f, 0.5f, 0.25f);
    const SceneColors colors(true, false, true, a, a, a, a, a, a);
    const std::string vec = "Vec4(_x=1.0, _y=0.0, _z=0.5, _w=0.25)";
    EXPECT_EQ(colors.toString(), "SceneColors(isDay=true, isLowSun=false, drawBirds=true, birds=" + vec +
                                     ", clouds=" + vec + ", stars=" + vec + ", waterColorNear=" + vec +
                                     ", waterColorFar=" + vec + ", distantZFogColor=" + vec + ")");
    SceneColors same = colors;
    EXPECT_EQ(same, colors);
    EXPECT_EQ(std::hash<SceneColors>{}(same), colors.hash());
    // The stored-but-unread fields still take part in equality.
    SceneColors otherBirds = colors;
    otherBirds.drawBirds = false;
    EXPECT_NE(otherBirds, colors);
    SceneColors otherColor = colors;
    otherColor.birds.b() = 0.75f;
    EXPECT_NE(otherColor, colors);
}

TEST(NivalisCatalogue, CoursesAreClosedLoopsOfUnequalLengths) {
    const auto& ships = ShipsConfig::shared().SHIPS;
    const std::size_t knots[3] = {32, 31, 37};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto& spline = *ships[i].spline;
        ASSERT_EQ(spline.splineX.y.size(), knots[i]);
        ASSERT_EQ(spline.splineY.y.size(), knots[i]);
        ASSERT_EQ(spline.splineZ.y.size(), knots[i]);
        for (std::size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(spline.splineX.y[knots[i] - 4 + k], spline.splineX.y[k]) << "ship " << i;
            EXPECT_EQ(spline.splineY.y[knots[i] - 4 + k], spline.splineY.y[k]) << "ship " << i;
        }
        for (double z : spline.splineZ.y) {
            EXPECT_EQ(z, 0.0);
        }
    }
    EXPECT_DOUBLE_EQ(ships[2].spline->splineY.y[32], -19621.877);
    EXPECT_DOUBLE_EQ(ships[2].spline->splineY.y[33], -22554.523);

    for (const auto& seal : Seals::shared().WALKING) {
        ASSERT_NE(seal.spline, nullptr);
        ASSERT_EQ(seal.spline->splineX.y.size(), 12u);
        for (std::size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(seal.spline->splineX.y[8 + k], seal.spline->splineX.y[k]);
            EXPECT_EQ(seal.spline->splineY.y[8 + k], seal.spline->splineY.y[k]);
        }
        for (double z : seal.spline->splineZ.y) {
            EXPECT_DOUBLE_EQ(z, 204.81567);
        }
    }
}

TEST(NivalisCatalogue, ThirteenRotatingTimersWithTheirPeriods) {
    engine::timers::TimersMap timers;
    initializeTimers(timers);
    EXPECT_EQ(timers.size(), 13u);
    const std::pair<Timers, float> periods[] = {
        {Timers::Water, 720000.0f},         {Timers::WaterLarge, 60000.0f},   {Timers::CloudsRotation, 300000.0f},
        {Timers::CloudsAnimation, 15000.0f}, {Timers::BirdWings1, 1000.0f},   {Timers::BirdWings2, 900.0f},
        {Timers::BirdsFly, 75000.0f},       {Timers::Ships, 200000.0f},       {Timers::PenguinIdle, 5000.0f},
        {Timers::PenguinIdle2, 5000.0f},    {Timers::SealIdleAnim, 4000.0f},  {Timers::SealWalkAnim, 1900.0f},
        {Timers::SealWalkSpline, 114000.0f},
    };
    for (const auto& [key, period] : periods) {
        EXPECT_EQ(timers.params(key).period, period) << toString(key);
        EXPECT_TRUE(timers.params(key).rotating) << toString(key);
    }
    // The camera keeps its own clock: its key is never added.
    EXPECT_THROW(timers.get(Timers::Camera), engine::IllegalStateError);
}

} // namespace
