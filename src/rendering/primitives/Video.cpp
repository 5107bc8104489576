#include <Orlek/OpenGL/Video.h>

#include <utility>

#include "rendering/context/DrawPass.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/geometry/Positions.h"
#include "rendering/geometry/PushWith.h"
#include "rendering/geometry/Shapes.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/PixelBuffer.h"
#include "rendering/gl/Texture.h"

namespace Orlek::OpenGL {

namespace {

constexpr const char* videoLabel = "Video";
constexpr unsigned rgb = 0x1907;

// Room for a frame of four bytes a pixel: rows stay aligned for drivers that pad what they read.
constexpr std::size_t bytesPerPixel = 4;

}  // namespace

Video::Video() = default;
Video::Video(const Video&) = default;
Video& Video::operator=(const Video&) = default;
Video::~Video() = default;

void Video::init(unsigned width, unsigned height) {
    std::shared_ptr<Detail::Texture> texture;
    if (!Detail::replaceTexture(texture, Detail::imageRecipe, {nullptr, width, height, rgb},
                                videoLabel)) {
        return;
    }
    Detail::clearErrors();
    auto pbo = Detail::PixelBuffer::create(std::size_t{width} * height * bytesPerPixel);
    if (Detail::reportErrors(videoLabel)) {
        texture->release();
        return;
    }
    Detail::releaseShare(mMesh);
    Detail::releaseShare(mTexture);
    Detail::releaseShare(mPbo);
    mTexture = std::move(texture);
    mPbo = std::move(pbo);
    mWidth = width;
    mHeight = height;
    clearVertex();
    Detail::eachImageCorner(
        width, height, [this](const Math::Vector3<float>& corner, const Math::Vector2<float>& uv) {
            addVertex(corner, uv);
        });
}

void Video::putFrame(const unsigned char* frame) {
    if (frame != nullptr && mTexture != nullptr && mPbo != nullptr) {
        mPbo->putRgb(mTexture->name(), mWidth, mHeight, frame);
    }
}

void Video::addVertex(Math::Vector3<float> p, Math::Vector2<float> uv) {
    Detail::pushWith(mVertices, p, [&] { mUVs.push_back(uv); });
    mDirty = true;
}

void Video::addVertex(Math::Vector4<float> p, Math::Vector2<float> uv) {
    addVertex(Detail::toPosition(p), uv);
}

void Video::clearVertex() {
    mVertices.clear();
    mUVs.clear();
    mDirty = true;
}

void Video::clear() {
    Detail::releaseShare(mTexture);
    Detail::releaseShare(mPbo);
    Detail::releaseShare(mMesh);
}

void Video::setColor(Math::Vector4<float> color) {
    mColor = color;
}

unsigned Video::width() {
    return mWidth;
}

unsigned Video::height() {
    return mHeight;
}

void Video::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Detail::Attribute::Vertex, mVertices),
                                      Detail::streamOf(Detail::Attribute::TextureCoordinate, mUVs)};
    mDirty = !Detail::syncMesh(videoLabel, mMesh, streams);
}

void Video::render() {
    if (mVertices.empty() || mTexture == nullptr) {
        return;
    }
    if (mDirty || mMesh == nullptr) {
        setData();
    }
    if (mMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(videoLabel, Detail::texturedProgram);
    pass.set("color", mColor);
    pass.matrix();  // it discards errors: before what is to be told
    pass.bind(*mMesh);
    pass.texture(mTexture->name());
    pass.blend();
    pass.draw(Detail::DrawMode::TriangleStrip, 0, mVertices.size());
}

}  // namespace Orlek::OpenGL
