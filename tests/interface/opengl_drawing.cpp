// Lines, filled and textured primitives, and the three fonts.
#include "interface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace interface {
namespace {
using namespace Orlek::OpenGL;
using V2 = Orlek::Math::Vector2<float>;
using V3 = Orlek::Math::Vector3<float>;
using V4 = Orlek::Math::Vector4<float>;
using Matrix = Orlek::Math::Matrix4<float>;
using Text = const std::string&;

/// What all that is drawn has.
template <typename... Classes>
void drawn() {
    value<Classes...>();
    member<void()>(&Classes::clearVertex...);
    member<void()>(&Classes::clear...);
    member<void(V4)>(&Classes::setColor...);
}

/// Points of two, three and four coordinates, with what may follow them.
template <typename Class, typename... More>
void points() {
    member<void(V2, More...)>(&Class::addVertex);
    member<void(V3, More...)>(&Class::addVertex);
    member<void(V4, More...)>(&Class::addVertex);
}

template <typename Class>
void line() {
    points<Class>();
    member<void(unsigned int, unsigned int)>(&Class::setRect);
    member<void(float)>(&Class::setLineWidth);
    member<void(bool)>(&Class::setAntiAlias);
    member<void(unsigned short)>(&Class::setStipple);
}

template <typename Class>
void strips() {
    line<Class>();
    constant<int>(&Class::RESTART_INDEX, 0x12FFFFFF);
    member<void(std::vector<V2>)>(&Class::addLineStrip);
    member<void(std::vector<V3>)>(&Class::addLineStrip);
    member<void(std::vector<V4>)>(&Class::addLineStrip);
    points<Class, V4>();
    member<void(bool)>(&Class::setUseMultiColor);
    member<void(int)>(&Class::render);
}

template <typename Class>
void textured() {
    member<void(V3, V2)>(&Class::addVertex);
    member<void(V4, V2)>(&Class::addVertex);
    member<unsigned int()>(&Class::width, &Class::height);
}

template <typename Font>
void font() {
    static_assert(std::is_enum_v<typename Font::Alignment>);
    static_assert(Font::TOP_LEFT == 0 && Font::CENTER_LEFT == 1 && Font::BOTTOM_LEFT == 2);
    static_assert(Font::TOP_CENTER == 3 && Font::CENTER == 4 && Font::BOTTOM_CENTER == 5);
    static_assert(Font::TOP_RIGHT == 6 && Font::CENTER_RIGHT == 7 && Font::BOTTOM_RIGHT == 8);
    constant<unsigned int>(&Font::RESTART_INDEX, 0xFFFFFFFFu);
}

template <typename Font>
void atlas() {
    using Alignment = typename Font::Alignment;
    font<Font>();
    constant<int>(&Font::MAX_CHAR, 224);
    member<bool(const char*, int)>(&Font::load);
    member<bool(const char*, const char*, int, int)>(&Font::loadData);
    member<void(Text, Matrix, Alignment)>(&Font::addText);
    member<void(Text, Alignment)>(&Font::renderFont);
    member<void(double, double, Text, Alignment)>(&Font::renderFont);
    member<unsigned int()>(&Font::texture);
}

void fonts() {
    using Alignment = VectorFont::Alignment;
    using Record = CHARDEF_STRUCT;
    using Stroke = CHARSET_STRUCT;
    using Glyph = GlyphInfo;
    static_assert(sizeof(Record) == 12);
    value<Glyph, Record, Stroke>();
    member<float>(&Glyph::s0, &Glyph::t0, &Glyph::s1, &Glyph::t1, &Glyph::top, &Glyph::advance,
                  &Glyph::width, &Glyph::height, &Record::x, &Record::y, &Stroke::advance);
    member<V2>(&Glyph::bearing);
    member<std::vector<V3>>(&Glyph::vertices);
    member<std::vector<V2>>(&Glyph::uvs);
    member<std::int32_t>(&Record::type);
    member<std::uint32_t>(&Stroke::count);
    member<const Record*>(&Stroke::records);
    font<VectorFont>();
    member<void(Stroke*)>(&VectorFont::vectorFontInit);
    member<void(Text, Matrix, double, Alignment)>(&VectorFont::addText);
    member<void(double, double, Text, double, Alignment)>(&VectorFont::renderFont);
    member<void(Text, double, Alignment)>(&VectorFont::renderFont);
    member<void(double)>(&VectorFont::setLineWidth);
    function<V4(V4)>(&getOppositeColor);
    atlas<TextureFont>();
    atlas<TextureFontSdf>();
    constant<int>(&TextureFontSdf::mMaxSearchRadius, 8);
    member<void(int)>(&TextureFontSdf::setSize);
    member<void(V4)>(&TextureFontSdf::setOutlineColor);
    member<void(float)>(&TextureFontSdf::setOutlineWidth);
}
}  // namespace

void drawing() {
    using TessPolygon = Tesselator::TessPolygon;
    using TessPrimitive = decltype(TessPolygon::primitives)::value_type;
    using Vertices = decltype(TessPrimitive::vertices);
    using Image = void(const unsigned char*, unsigned int, unsigned int, unsigned int);
    using Normals = void(const unsigned short*, unsigned int, unsigned int, unsigned int);
    static_assert(std::is_same_v<Vertices::value_type, V3>);
    drawn<Lines, LineLoops, LineStrips, LineStripsSimple, Polygon, TriangleStrip, Circle, Texture,
          Video, TextureTerrain, VectorFont, TextureFont, TextureFontSdf>();
    member<void()>(&Lines::render, &Polygon::render, &TriangleStrip::render, &Circle::render,
                   &Texture::render, &Video::render, &TextureTerrain::render, &VectorFont::render,
                   &TextureFont::render, &TextureFontSdf::render, &Tesselator::clearVertex);
    line<Lines>();
    line<LineLoops>();
    constant<int>(&LineLoops::RESTART_INDEX, -1);
    member<void(std::vector<V2>)>(&LineLoops::addLineLoop);
    member<void(std::vector<V3>)>(&LineLoops::addLineLoop);
    member<void(std::vector<V4>)>(&LineLoops::addLineLoop);
    member<void(double)>(&LineLoops::render);
    strips<LineStrips>();
    strips<LineStripsSimple>();

    value<TessPolygon, TessPrimitive, Tesselator>();
    member<unsigned int>(&TessPrimitive::type, &TessPrimitive::start);
    points<Tesselator>();
    member<TessPolygon()>(&Tesselator::tesselate);
    member<void(TessPolygon)>(&Polygon::addTessPolygon);
    member<void(unsigned char*)>(&Polygon::setPattern, &TriangleStrip::setPattern,
                                 &Circle::setPattern);
    points<TriangleStrip>();
    points<TriangleStrip, V4>();
    member<void(unsigned int, unsigned int)>(&TriangleStrip::setRect, &Video::init);
    member<void(bool)>(&TriangleStrip::setUseMultiColor, &Texture::setUseMipMaps,
                       &TextureTerrain::setShading);
    member<void(double, unsigned int)>(&Circle::setCircle);

    textured<Texture>();
    textured<Video>();
    textured<TextureTerrain>();
    constant<int>(&Texture::RESTART_INDEX, -1);
    constant<int>(&Video::RESTART_INDEX, -1);
    member<Image>(&Texture::load, &TextureTerrain::load);
    member<void(const void*, unsigned int)>(&Texture::load, &TextureTerrain::load);
    member<unsigned int(const void*)>(&Texture::createTexture);
    member<void(std::vector<V3>, std::vector<V2>)>(&Texture::addTexture);
    member<void(std::vector<V4>, std::vector<V2>)>(&Texture::addTexture);
    member<void(unsigned int)>(&Texture::setWrapMode, &TextureTerrain::setColorMap);
    member<void(const unsigned char*)>(&Video::putFrame);
    member<Normals>(&TextureTerrain::loadNormals);
    member<void(V3)>(&TextureTerrain::setLightDirection);
    member<void(double)>(&TextureTerrain::setShadingBrightness, &TextureTerrain::setShadingContrast,
                         &TextureTerrain::setShadingFactor, &TextureTerrain::setTerrainOsm);
    fonts();
}

}  // namespace interface
