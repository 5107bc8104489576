#include <Orlek/OpenGL/TextureTerrain.h>

#include "rendering/context/DrawPass.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/geometry/ImageBlock.h"
#include "rendering/geometry/Positions.h"
#include "rendering/geometry/PushWith.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"

namespace Orlek::OpenGL {

namespace {

constexpr const char* terrainLabel = "TextureTerrain";

unsigned nameOf(const std::shared_ptr<Detail::Texture>& texture) {
    return texture == nullptr ? 0 : texture->name();
}

}  // namespace

TextureTerrain::TextureTerrain() = default;
TextureTerrain::TextureTerrain(const TextureTerrain&) = default;
TextureTerrain& TextureTerrain::operator=(const TextureTerrain&) = default;
TextureTerrain::~TextureTerrain() = default;

void TextureTerrain::addVertex(Math::Vector3<float> position, Math::Vector2<float> uv) {
    Detail::pushWith(mVertices, position, [&] { mUVs.push_back(uv); });
    mDirty = true;
}

void TextureTerrain::addVertex(Math::Vector4<float> position, Math::Vector2<float> uv) {
    addVertex(Detail::toPosition(position), uv);
}

void TextureTerrain::clearVertex() {
    mVertices.clear();
    mUVs.clear();
    mDirty = true;
}

void TextureTerrain::clear() {
    Detail::releaseShare(mTexture);
    Detail::releaseShare(mTextureNormal);
    Detail::releaseShare(mMesh);
}

void TextureTerrain::replaceTexture(std::shared_ptr<Detail::Texture>& texture,
                                    const Detail::TextureRecipe& recipe,
                                    const Detail::TextureImage& image) {
    if (image.pixels == nullptr || !Detail::replaceTexture(texture, recipe, image, terrainLabel)) {
        return;
    }
    mWidth = static_cast<unsigned>(image.width);
    mHeight = static_cast<unsigned>(image.height);
}

void TextureTerrain::load(const unsigned char* pixels, unsigned width, unsigned height,
                          unsigned format) {
    replaceTexture(mTexture, Detail::imageRecipe, {pixels, width, height, format});
}

void TextureTerrain::load(const void* image, unsigned format) {
    if (image != nullptr) {
        const Detail::ImageBlock block = Detail::ImageBlock::parse(image);
        load(block.pixels, block.width, block.height, format);
    }
}

void TextureTerrain::loadNormals(const unsigned short* data, unsigned width, unsigned height,
                                 unsigned format) {
    replaceTexture(mTextureNormal, Detail::normalsRecipe, {data, width, height, format});
}

unsigned TextureTerrain::width() {
    return mWidth;
}

unsigned TextureTerrain::height() {
    return mHeight;
}

void TextureTerrain::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void TextureTerrain::setColorMap(unsigned texture) {
    mColorMap = texture;
}

void TextureTerrain::setLightDirection(Math::Vector3<float> direction) {
    mLightDirection = direction;
}

void TextureTerrain::setShading(bool on) {
    mShading = on;
}

void TextureTerrain::setShadingBrightness(double brightness) {
    mBrightness = brightness;
}

void TextureTerrain::setShadingContrast(double contrast) {
    mContrast = contrast;
}

void TextureTerrain::setShadingFactor(double factor) {
    mShadingFactor = factor;
}

void TextureTerrain::setTerrainOsm(double share) {
    mOsm = share;
}

void TextureTerrain::setData() {
    if (mDirty || mMesh == nullptr) {
        const Detail::Stream streams[] = {streamOf(Detail::Attribute::Vertex, mVertices),
                                          streamOf(Detail::Attribute::TextureCoordinate, mUVs)};
        mDirty = !Detail::syncMesh(terrainLabel, mMesh, streams);
    }
}

void TextureTerrain::render() {
    setData();
    if (mMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(terrainLabel, Detail::terrainProgram);
    pass.set("color", mColor);
    pass.set("shadingOn", mShading && mTextureNormal != nullptr ? 1 : 0);
    if (mShading) {
        pass.set("lightDirection", mLightDirection);
    }
    pass.set("terrainShadingFactor", static_cast<float>(mShadingFactor));
    pass.set("terrainContrast", static_cast<float>(mContrast));
    pass.set("terrainBrightness", static_cast<float>(mBrightness));
    pass.set("osmTerrain", static_cast<float>(mOsm));
    pass.set("Texture0", 0);
    pass.set("Texture1", 1);
    pass.set("Texture2", 2);
    pass.matrix();  // it discards errors: before what is to be told
    pass.bind(*mMesh);
    const Detail::TextureUnit units[] = {
        {Detail::TextureTarget::TwoDimensional, nameOf(mTexture), true},
        {Detail::TextureTarget::TwoDimensional, nameOf(mTextureNormal), false},
        {Detail::TextureTarget::OneDimensional, mColorMap, false}};
    pass.textures(units);
    pass.blend();
    pass.draw(Detail::DrawMode::TriangleStrip, 0, mVertices.size());
}

}  // namespace Orlek::OpenGL
