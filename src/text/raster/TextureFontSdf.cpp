#include "Orlek/OpenGL/TextureFontSdf.h"

#include <Orlek/OpenGL/MatrixStack.h>

#include <map>
#include <memory>
#include <utility>

#include "platform/Report.h"
#include "rendering/context/DrawPass.h"
#include "rendering/context/MatrixScope.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"
#include "text/layout/Anchor.h"
#include "text/layout/GlyphRun.h"
#include "text/raster/AtlasDrawing.h"
#include "text/raster/FieldAtlas.h"

namespace Orlek::OpenGL {
namespace {

constexpr const char* fieldFontLabel = "TextureFontSdf";

static_assert(TextureFontSdf::MAX_CHAR == Detail::slotCount);
static_assert(TextureFontSdf::RESTART_INDEX == Detail::glyphRestart);
static_assert(TextureFontSdf::mMaxSearchRadius == Detail::fieldRadius);

float scaleOf(int size) {
    return static_cast<float>(size / static_cast<double>(Detail::fieldDesignSize));
}

// The quads reach beyond the glyphs on all sides, to the left and below too.
Math::Vector2<float> penStart(int align, float width, float height) {
    const Math::Vector2<float> offset = Detail::anchorOffset(align, width, height);
    constexpr auto border = static_cast<float>(Detail::fieldPadding);
    return {offset.x - border, offset.y - border};
}

void reportNoFace(const Detail::FontFace& face) {
    Detail::report("FT_New_Memory_Face failed %d ! \n", face.error());
}

}  // namespace

/// A font that was built, or could not be when its name was new: then it is empty and stays so.
struct TextureFontSdf::FontType {
    std::shared_ptr<Detail::Texture> texture;
    Detail::GlyphSet mGlyphs;
    bool wasBuilt = false;  ///< Otherwise a refused font stays empty.
    bool toBeBuilt = true;  ///< Not tried yet, or the texture was deleted.

    /// Whether no object has a share of the texture.
    bool isUnused() const { return texture.use_count() == 1; }
};

struct TextureFontSdf::FontCache {
    std::uint32_t mStaticFontId = 0;
    std::map<std::string, std::uint32_t> mFontNames;
    std::map<std::uint32_t, FontType> mFonts;
};

bool TextureFontSdf::mInitDone = false;
FT_LibraryRec_* TextureFontSdf::mFtLibrary = nullptr;

// Never destroyed: fonts in static storage may outlive every other static.
TextureFontSdf::FontCache& TextureFontSdf::fontCache() {
    static FontCache* const cache = std::make_unique<FontCache>().release();
    return *cache;
}

TextureFontSdf::TextureFontSdf() {
    Detail::startFreeType(mInitDone, mFtLibrary);
}

TextureFontSdf::TextureFontSdf(const TextureFontSdf& other) = default;
TextureFontSdf& TextureFontSdf::operator=(const TextureFontSdf& other) = default;

TextureFontSdf::~TextureFontSdf() {
    clear();
}

bool TextureFontSdf::load(const char* fileName, int pixelSize) {
    std::vector<char> bytes;
    return Detail::readFontFile(fieldFontLabel, fileName, bytes) &&
           loadData(fileName, bytes.data(), static_cast<int>(bytes.size()), pixelSize);
}

bool TextureFontSdf::loadData(const char* name, const char* data, int size, int pixelSize) {
    if (name == nullptr) {
        reportNoFace(Detail::FontFace(mFtLibrary, nullptr, 0));
        return false;
    }
    FontCache& cache = fontCache();
    const auto [entry, isNew] = cache.mFontNames.try_emplace(name, cache.mStaticFontId);
    cache.mStaticFontId += isNew ? 1 : 0;
    if (mFontId != entry->second) {
        clearVertex();
        Detail::releaseObjects(mText);  // the quads of the other font
        mTexture.reset();
        mFontId = entry->second;
    }
    FontType& font = cache.mFonts[mFontId];
    if (font.toBeBuilt && !createGlyphTexture(data, size, font)) {
        return false;
    }
    mTexture = font.texture;
    mScale = scaleOf(pixelSize);
    Detail::releaseObjects(mText);
    return Detail::uploadQuads(fieldFontLabel, mText, font.mGlyphs);
}

bool TextureFontSdf::createGlyphTexture(const char* data, int size, FontType& font) {
    Detail::FontFace face(mFtLibrary, data, size);
    if (face.error() != 0) {
        reportNoFace(face);
        font.toBeBuilt = font.wasBuilt;
        return false;
    }
    Detail::GlyphAtlas atlas;
    Detail::GlyphSet glyphs;  // without those of an earlier font
    if (!Detail::buildFieldAtlas(face, atlas, glyphs)) {
        font.toBeBuilt = font.wasBuilt;
        return false;
    }
    font.mGlyphs = std::move(glyphs);
    font.wasBuilt = true;
    font.texture = Detail::Texture::create(Detail::coverageRecipe, atlas.image());
    font.toBeBuilt = font.texture == nullptr;
    return !font.toBeBuilt;
}

TextureFontSdf::FontType* TextureFontSdf::currentFont() {
    auto& fonts = fontCache().mFonts;
    const auto entry = fonts.find(mFontId);
    return entry == fonts.end() ? nullptr : &entry->second;
}

// Who draws is a user of the texture, also after a clear().
TextureFontSdf::FontType* TextureFontSdf::drawableFont() {
    FontType* const font = currentFont();
    if (font == nullptr || font->texture == nullptr) {
        return nullptr;
    }
    mTexture = font->texture;
    return font;
}

void TextureFontSdf::addText(const std::string& text, Math::Matrix4<float> transform,
                             Alignment align) {
    const FontType* const font = currentFont();
    if (font == nullptr) {
        return;
    }
    const Detail::GlyphRun run(font->mGlyphs.glyphs, text);
    const auto offset = penStart(align, run.width(), run.height());
    Detail::appendText(mText, run, {offset, mScale, transform});
}

void TextureFontSdf::setColors(Detail::DrawPass& pass) const {
    pass.set("color", mColor);
    pass.set("outlineColor", mOutlineColor);
    pass.set("outlineWidth", mOutlineWidth);
}

void TextureFontSdf::render() {
    if (drawableFont() == nullptr || !Detail::prepareBatch(fieldFontLabel, mText)) {
        return;
    }
    Detail::DrawPass pass(fieldFontLabel, Detail::fieldProgram);
    setColors(pass);
    Detail::drawBatch(pass, mText, texture());
}

void TextureFontSdf::renderFont(const std::string& text, Alignment align) {
    const FontType* const font = drawableFont();
    if (font == nullptr || (mText.atlasMesh == nullptr &&
                            !Detail::uploadQuads(fieldFontLabel, mText, font->mGlyphs))) {
        return;
    }
    Detail::DrawPass pass(fieldFontLabel, Detail::fieldProgram);
    setColors(pass);
    {
        const Detail::MatrixScope scope;
        MatrixScale(mScale, mScale, 1.0);
        pass.matrix();
    }
    const Detail::GlyphRun run(font->mGlyphs.glyphs, text);
    const auto lineHeight = static_cast<float>(font->mGlyphs.maxGlyphHeight);
    Detail::drawAtOnce(pass, mText, texture(), run, penStart(align, run.width(), lineHeight));
    pass.set("offset", Math::Vector3<float>(0.0F, 0.0F, 0.0F));
}

void TextureFontSdf::renderFont(double x, double y, const std::string& text, Alignment align) {
    const Detail::MatrixScope scope;
    MatrixTranslate(x, y, 0.0);
    renderFont(text, align);
}

void TextureFontSdf::clearVertex() {
    Detail::clearBatch(mText);
}

void TextureFontSdf::setSize(int size) {
    mScale = scaleOf(size);
}

void TextureFontSdf::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void TextureFontSdf::setOutlineColor(Math::Vector4<float> color) {
    mOutlineColor = color;
}

void TextureFontSdf::setOutlineWidth(float width) {
    mOutlineWidth = width;
}

// Fonts that their last user has left for another go too: no other call would delete them.
void TextureFontSdf::clear() {
    if (currentFont() == nullptr) {
        return;  // makes no GL call
    }
    mTexture.reset();
    for (auto& [id, font] : fontCache().mFonts) {
        if (font.isUnused()) {
            Detail::releaseShare(font.texture);
            font.toBeBuilt = true;
        }
    }
    Detail::releaseObjects(mText);
}

unsigned int TextureFontSdf::texture() {
    const FontType* const font = currentFont();
    return font == nullptr || font->texture == nullptr ? 0 : font->texture->name();
}

}  // namespace Orlek::OpenGL
