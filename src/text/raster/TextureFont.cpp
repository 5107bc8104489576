#include "Orlek/OpenGL/TextureFont.h"

#include <Orlek/OpenGL/MatrixStack.h>

#include "platform/Report.h"
#include "platform/WholeFile.h"
#include "rendering/context/DrawPass.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"
#include "text/layout/Anchor.h"
#include "text/layout/GlyphRun.h"
#include "text/layout/TextBatch.h"
#include "text/raster/GlyphRaster.h"

namespace Orlek::OpenGL {
namespace {

using Detail::Attribute;

constexpr const char* label = "TextureFont";
constexpr unsigned glyphProgram = 5;
constexpr Detail::ShelfRecipe shelves{.shelfWidth = 256, .gap = 3, .padding = 0};

static_assert(TextureFont::MAX_CHAR == Detail::slotCount);

const char* printable(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

bool TextureFont::mInitDone = false;
FT_LibraryRec_* TextureFont::mFtLibrary = nullptr;

TextureFont::TextureFont() {
    if (mInitDone) {
        return;
    }
    mFtLibrary = Detail::openFreeType();
    mInitDone = mFtLibrary != nullptr;
    Detail::report(mInitDone ? "INIT Freetype done\n" : "init freetype failed !\n");
}

TextureFont::TextureFont(const TextureFont& other) = default;
TextureFont& TextureFont::operator=(const TextureFont& other) = default;

TextureFont::~TextureFont() {
    clear();
}

bool TextureFont::load(const char* fileName, int pixelSize) {
    std::vector<char> bytes;
    if (fileName == nullptr || !Detail::readWholeFile(fileName, bytes)) {
        Detail::report("TextureFont::load could not open <%s>\n", printable(fileName));
        return false;
    }
    return loadData(fileName, bytes.data(), static_cast<int>(bytes.size()), pixelSize);
}

bool TextureFont::loadData(const char* name, const char* data, int size, int pixelSize) {
    Detail::FontFace face(mFtLibrary, data, size);
    if (face.error() != 0) {
        Detail::report("FT_New_Face failed %d ! <%s>\n", face.error(), printable(name));
        return false;
    }
    if (!face.setPixelHeight(pixelSize)) {
        Detail::report("FT_Set_Pixel_Sizes failed !\n");
        return false;
    }
    const Detail::ShelfLayout layout = Detail::layoutGlyphs(face, shelves);
    mMaxGlyphHeight = layout.maxHeight();
    Detail::GlyphAtlas atlas;
    if (!Detail::allocateAtlas(layout, atlas)) {
        return false;
    }
    Detail::rasterGlyphs(face, layout, atlas, mGlyphs);
    clear();
    return makeObjects(atlas);
}

bool TextureFont::makeObjects(const Detail::GlyphAtlas& atlas) {
    mTexture = Detail::Texture::create(Detail::coverageRecipe,
                                       {atlas.pixels.data(), static_cast<std::size_t>(atlas.width),
                                        static_cast<std::size_t>(atlas.height)});
    if (mTexture == nullptr) {
        return false;
    }
    Detail::makeQuads(mGlyphs, shelves.padding);
    std::vector<Math::Vector3<float>> vertices;
    std::vector<Math::Vector2<float>> uvs;
    for (const GlyphInfo& glyph : mGlyphs) {
        vertices.insert(vertices.end(), glyph.vertices.begin(), glyph.vertices.end());
        uvs.insert(uvs.end(), glyph.uvs.begin(), glyph.uvs.end());
    }
    const Detail::Stream streams[] = {Detail::streamOf(Attribute::Vertex, vertices),
                                      Detail::streamOf(Attribute::TextureCoordinate, uvs)};
    Detail::syncMesh(mAtlasMesh, streams);
    return mAtlasMesh != nullptr;
}

void TextureFont::addText(const std::string& text, Math::Matrix4<float> transform,
                          Alignment align) {
    mDirty = true;
    const Detail::GlyphRun run(mGlyphs, text);
    const auto offset =
        Detail::anchorOffset(align, run.width(), static_cast<float>(mMaxGlyphHeight));
    Detail::TextBatch batch({mVertices, mUvs, mIndices}, text.size(), transform, RESTART_INDEX);
    run.walk([&](std::size_t, const GlyphInfo& glyph, float pen) {
        batch.append(glyph, {pen + offset.x, offset.y});
    });
}

void TextureFont::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Attribute::Vertex, mVertices),
                                      Detail::streamOf(Attribute::TextureCoordinate, mUvs)};
    Detail::syncMesh(mBatchMesh, streams, mIndices);
}

void TextureFont::render() {
    if (mIndices.empty() || mVertices.empty()) {
        return;
    }
    if (mDirty) {
        setData();
        mDirty = false;
    }
    if (mBatchMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(label, glyphProgram);
    pass.restart(RESTART_INDEX);
    pass.blend();
    pass.set("color", mColor);
    pass.set("offset", Math::Vector3<float>());
    pass.matrix();
    pass.bind(*mBatchMesh);
    pass.texture(texture());
    pass.drawIndexed(Detail::DrawMode::TriangleFan, mIndices.size());
}

void TextureFont::renderFont(const std::string& text, Alignment align) {
    if (mAtlasMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(label, glyphProgram);
    pass.set("color", mColor);
    pass.matrix();
    const Detail::GlyphRun run(mGlyphs, text);
    const auto offset =
        Detail::anchorOffset(align, run.width(), static_cast<float>(mMaxGlyphHeight));
    pass.bind(*mAtlasMesh);
    pass.texture(texture());
    pass.blend();
    run.walk([&](std::size_t slot, const GlyphInfo&, float pen) {
        pass.set("offset", Math::Vector3<float>(pen + offset.x, offset.y, 0.0F));
        pass.draw(Detail::DrawMode::TriangleFan, 4 * slot, 4);
    });
}

void TextureFont::renderFont(double x, double y, const std::string& text, Alignment align) {
    MatrixPush();
    MatrixTranslate(x, y, 0.0);
    renderFont(text, align);
    MatrixPop();
}

void TextureFont::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void TextureFont::clearVertex() {
    mVertices.clear();
    mUvs.clear();
    mIndices.clear();
    mDirty = true;
}

void TextureFont::clear() {
    Detail::releaseShare(mTexture);
    Detail::releaseShare(mAtlasMesh);
    Detail::releaseShare(mBatchMesh);
    mVertices.clear();
    mUvs.clear();
    mIndices.clear();
    for (GlyphInfo& glyph : mGlyphs) {
        glyph.vertices.clear();
        glyph.uvs.clear();
    }
}

unsigned int TextureFont::texture() {
    return mTexture == nullptr ? 0 : mTexture->name();
}

}  // namespace Orlek::OpenGL
