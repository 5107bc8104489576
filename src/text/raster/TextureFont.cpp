#include "Orlek/OpenGL/TextureFont.h"

#include "platform/Report.h"
#include "rendering/context/DrawPass.h"
#include "rendering/context/MatrixScope.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"
#include "text/layout/Anchor.h"
#include "text/layout/GlyphRun.h"
#include "text/raster/AtlasDrawing.h"
#include "text/raster/GlyphRaster.h"

namespace Orlek::OpenGL {
namespace {

constexpr const char* fontLabel = "TextureFont";
constexpr Detail::ShelfRecipe shelves{.shelfWidth = 256, .gap = 3, .padding = 0};

static_assert(TextureFont::MAX_CHAR == Detail::slotCount);
static_assert(TextureFont::RESTART_INDEX == Detail::glyphRestart);

Math::Vector2<float> penStart(int align, const Detail::GlyphRun& run, int lineHeight) {
    return Detail::anchorOffset(align, run.width(), static_cast<float>(lineHeight));
}

}  // namespace

bool TextureFont::mInitDone = false;
FT_LibraryRec_* TextureFont::mFtLibrary = nullptr;

TextureFont::TextureFont() {
    Detail::startFreeType(mInitDone, mFtLibrary);
}

TextureFont::TextureFont(const TextureFont& other) = default;
TextureFont& TextureFont::operator=(const TextureFont& other) = default;

TextureFont::~TextureFont() {
    clear();
}

bool TextureFont::load(const char* fileName, int pixelSize) {
    std::vector<char> bytes;
    return Detail::readFontFile(fontLabel, fileName, bytes) &&
           loadData(fileName, bytes.data(), static_cast<int>(bytes.size()), pixelSize);
}

bool TextureFont::loadData(const char* name, const char* data, int size, int pixelSize) {
    Detail::FontFace face(mFtLibrary, data, size);
    if (face.error() != 0) {
        Detail::report("FT_New_Face failed %d ! <%s>\n", face.error(), name == nullptr ? "" : name);
        return false;
    }
    Detail::GlyphAtlas atlas;
    Detail::GlyphSet glyphs;  // without those of an earlier font
    if (!Detail::buildAtlas(face, pixelSize, shelves, atlas, glyphs)) {
        return false;
    }
    auto texture = Detail::Texture::create(Detail::coverageRecipe, atlas.image());
    if (texture == nullptr) {
        return false;
    }
    clear();
    mGlyphs = std::move(glyphs);
    mTexture = std::move(texture);
    Detail::makeQuads(mGlyphs.glyphs, shelves.padding);
    return Detail::uploadQuads(fontLabel, mText, mGlyphs);
}

void TextureFont::addText(const std::string& text, Math::Matrix4<float> transform,
                          Alignment align) {
    const Detail::GlyphRun run(mGlyphs.glyphs, text);
    const auto offset = penStart(align, run, mGlyphs.maxGlyphHeight);
    Detail::appendText(mText, run, {offset, 1.0F, transform});
}

void TextureFont::render() {
    if (!Detail::prepareBatch(fontLabel, mText)) {
        return;
    }
    Detail::DrawPass pass(fontLabel, Detail::glyphProgram);
    pass.set("color", mColor);
    Detail::drawBatch(pass, mText, texture());
}

void TextureFont::renderFont(const std::string& text, Alignment align) {
    if (mText.atlasMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(fontLabel, Detail::glyphProgram);
    pass.set("color", mColor);
    pass.matrix();
    const Detail::GlyphRun run(mGlyphs.glyphs, text);
    const auto offset = penStart(align, run, mGlyphs.maxGlyphHeight);
    Detail::drawAtOnce(pass, mText, texture(), run, offset);
}

void TextureFont::renderFont(double x, double y, const std::string& text, Alignment align) {
    const Detail::MatrixScope scope;
    MatrixTranslate(x, y, 0.0);
    renderFont(text, align);
}

void TextureFont::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void TextureFont::clearVertex() {
    Detail::clearBatch(mText);
}

void TextureFont::clear() {
    Detail::releaseShare(mTexture);
    Detail::releaseObjects(mText);
    Detail::clearBatch(mText);
    for (GlyphInfo& glyph : mGlyphs.glyphs) {
        glyph.vertices.clear();
        glyph.uvs.clear();
    }
}

unsigned int TextureFont::texture() {
    return mTexture == nullptr ? 0 : mTexture->name();
}

}  // namespace Orlek::OpenGL
