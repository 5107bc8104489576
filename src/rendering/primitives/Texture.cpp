#include <Orlek/OpenGL/Texture.h>

#include "rendering/context/DrawPass.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/geometry/ImageBlock.h"
#include "rendering/geometry/Positions.h"
#include "rendering/geometry/PushWith.h"
#include "rendering/geometry/Shapes.h"
#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/Texture.h"

namespace Orlek::OpenGL {

namespace {

constexpr const char* textureLabel = "Texture";
constexpr unsigned rgba = 0x1908;
constexpr auto quadRestart = static_cast<std::uint32_t>(Texture::RESTART_INDEX);

}  // namespace

Texture::Texture() = default;
Texture::Texture(const Texture&) = default;
Texture& Texture::operator=(const Texture&) = default;
Texture::~Texture() = default;

void Texture::load(const unsigned char* pixels, unsigned width, unsigned height, unsigned format) {
    const Detail::TextureRecipe recipe{
        .storage = Detail::Storage::CompressedRgba, .mipmaps = mUseMipMaps, .wrap = mWrapMode};
    if (pixels == nullptr ||
        !Detail::replaceTexture(mTexture, recipe, {pixels, width, height, format}, textureLabel)) {
        return;
    }
    Detail::releaseShare(mMesh);
    mWidth = width;
    mHeight = height;
    clearVertex();
    Detail::eachImageCorner(
        width, height, [this](const Math::Vector3<float>& corner, const Math::Vector2<float>& uv) {
            addVertex(corner, uv);
        });
}

void Texture::load(const void* image, unsigned format) {
    if (image != nullptr) {
        const Detail::ImageBlock block = Detail::ImageBlock::parse(image);
        load(block.pixels, block.width, block.height, format);
    }
}

unsigned Texture::createTexture(const void* image) {
    if (image == nullptr || !Detail::glReady()) {
        return 0;
    }
    const Detail::ImageBlock block = Detail::ImageBlock::parse(image);
    Detail::clearErrors();
    std::shared_ptr<Detail::Texture> texture;
    Detail::replaceTexture(texture, {.wrap = Detail::repeat},
                           {block.pixels, block.width, block.height, rgba}, textureLabel);
    Detail::clearErrors();
    return texture == nullptr ? 0 : texture->detach();
}

template <typename Vector>
void Texture::appendStrip(const std::vector<Vector>& positions,
                          const std::vector<Math::Vector2<float>>& uvs) {
    mDirty = true;
    for (const Vector& position : positions) {
        mPoints.append(Detail::toPosition(position));
    }
    mUVs.insert(mUVs.end(), uvs.begin(), uvs.end());
    mPoints.restart(quadRestart);
}

void Texture::addTexture(std::vector<Math::Vector3<float>> positions,
                         std::vector<Math::Vector2<float>> uvs) {
    appendStrip(positions, uvs);
}

void Texture::addTexture(std::vector<Math::Vector4<float>> positions,
                         std::vector<Math::Vector2<float>> uvs) {
    appendStrip(positions, uvs);
}

void Texture::addVertex(Math::Vector3<float> p, Math::Vector2<float> uv) {
    Detail::pushWith(mUVs, uv, [&] { mPoints.append(p); });
    mDirty = true;
}

void Texture::addVertex(Math::Vector4<float> p, Math::Vector2<float> uv) {
    addVertex(Detail::toPosition(p), uv);
}

void Texture::clearVertex() {
    mPoints.clear();
    mUVs.clear();
    mDirty = true;
}

void Texture::clear() {
    Detail::releaseShare(mTexture);
    Detail::releaseShare(mMesh);
    clearVertex();
}

void Texture::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void Texture::setUseMipMaps(bool on) {
    mUseMipMaps = on;
}

void Texture::setWrapMode(unsigned mode) {
    mWrapMode = mode;
}

unsigned Texture::width() {
    return mWidth;
}

unsigned Texture::height() {
    return mHeight;
}

void Texture::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Detail::Attribute::Vertex, mPoints.vertices),
                                      Detail::streamOf(Detail::Attribute::TextureCoordinate, mUVs)};
    mDirty = !Detail::syncMesh(textureLabel, mMesh, streams, mPoints.indices);
}

void Texture::render() {
    if (mPoints.indices.empty() || mTexture == nullptr) {
        return;
    }
    if (mDirty || mMesh == nullptr) {
        setData();
    }
    if (mMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(textureLabel, Detail::texturedProgram);
    pass.restart(quadRestart);
    pass.set("color", mColor);
    pass.matrix();  // it discards errors: before what is to be told
    pass.bind(*mMesh);
    pass.texture(mTexture->name());
    pass.blend();
    pass.drawIndexed(Detail::DrawMode::TriangleStrip, mPoints.indices.size());
}

}  // namespace Orlek::OpenGL
