// The three fonts.
#include "interface.h"

#include <cstdint>
#include <string>
#include <vector>

namespace interface {
namespace {
using namespace Orlek::OpenGL;
using Colour = Orlek::Math::Vector4<float>;
using Matrix = Orlek::Math::Matrix4<float>;
using Text = const std::string&;

template <typename Font>
constexpr bool anchors() {
    return Font::TOP_LEFT == 0 && Font::CENTER_LEFT == 1 && Font::BOTTOM_LEFT == 2 &&
           Font::TOP_CENTER == 3 && Font::CENTER == 4 && Font::BOTTOM_CENTER == 5 &&
           Font::TOP_RIGHT == 6 && Font::CENTER_RIGHT == 7 && Font::BOTTOM_RIGHT == 8;
}

/// What all three fonts have.
template <typename Font>
void common() {
    static_assert(std::is_enum_v<typename Font::Alignment> && anchors<Font>());
    value<Font>();
    constant<unsigned int>(&Font::RESTART_INDEX, 0xFFFFFFFFu);
    member<void()>(&Font::render);
    member<void(Colour)>(&Font::setColor);
    member<void()>(&Font::clearVertex);
    member<void()>(&Font::clear);
}

template <typename Font>
void atlas() {
    using Alignment = typename Font::Alignment;
    common<Font>();
    constant<int>(&Font::MAX_CHAR, 224);
    member<bool(const char*, int)>(&Font::load);
    member<bool(const char*, const char*, int, int)>(&Font::loadData);
    member<void(Text, Matrix, Alignment)>(&Font::addText);
    member<void(Text, Alignment)>(&Font::renderFont);
    member<void(double, double, Text, Alignment)>(&Font::renderFont);
    member<unsigned int()>(&Font::texture);
}

void glyph() {
    value<GlyphInfo>();
    member<float>(&GlyphInfo::s0);
    member<float>(&GlyphInfo::t0);
    member<float>(&GlyphInfo::s1);
    member<float>(&GlyphInfo::t1);
    member<float>(&GlyphInfo::top);
    member<float>(&GlyphInfo::advance);
    member<Orlek::Math::Vector2<float>>(&GlyphInfo::bearing);
    member<float>(&GlyphInfo::width);
    member<float>(&GlyphInfo::height);
    member<std::vector<Orlek::Math::Vector3<float>>>(&GlyphInfo::vertices);
    member<std::vector<Orlek::Math::Vector2<float>>>(&GlyphInfo::uvs);
}

void stroke() {
    using Alignment = VectorFont::Alignment;
    static_assert(sizeof(CHARDEF_STRUCT) == 12);
    value<CHARDEF_STRUCT>();
    member<float>(&CHARDEF_STRUCT::x);
    member<float>(&CHARDEF_STRUCT::y);
    member<std::int32_t>(&CHARDEF_STRUCT::type);
    value<CHARSET_STRUCT>();
    member<std::uint32_t>(&CHARSET_STRUCT::count);
    member<float>(&CHARSET_STRUCT::advance);
    member<const CHARDEF_STRUCT*>(&CHARSET_STRUCT::records);

    common<VectorFont>();
    member<void(CHARSET_STRUCT*)>(&VectorFont::vectorFontInit);
    member<void(Text, Matrix, double, Alignment)>(&VectorFont::addText);
    member<void(double, double, Text, double, Alignment)>(&VectorFont::renderFont);
    member<void(Text, double, Alignment)>(&VectorFont::renderFont);
    member<void(double)>(&VectorFont::setLineWidth);

    function<Colour(Colour)>(&getOppositeColor);
}

}  // namespace

void text() {
    glyph();
    atlas<TextureFont>();

    atlas<TextureFontSdf>();
    constant<int>(&TextureFontSdf::mMaxSearchRadius, 8);
    member<void(int)>(&TextureFontSdf::setSize);
    member<void(Colour)>(&TextureFontSdf::setOutlineColor);
    member<void(float)>(&TextureFontSdf::setOutlineWidth);

    stroke();
}

}  // namespace interface
