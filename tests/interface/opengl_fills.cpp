// Filled and textured primitives: polygons, strips, circles, textures, video and terrain.
#include "interface.h"

#include <vector>

namespace interface {
namespace {
using namespace Orlek::OpenGL;
using V2 = Orlek::Math::Vector2<float>;
using V3 = Orlek::Math::Vector3<float>;
using V4 = Orlek::Math::Vector4<float>;

void polygon() {
    using TessPolygon = Tesselator::TessPolygon;
    using TessPrimitive = decltype(TessPolygon::primitives)::value_type;
    using Vertices = decltype(TessPrimitive::vertices);
    static_assert(std::is_same_v<Vertices::value_type, V3>);
    value<TessPolygon>();
    value<TessPrimitive>();
    member<unsigned int>(&TessPrimitive::type);
    member<unsigned int>(&TessPrimitive::start);

    value<Tesselator>();
    member<void(V2)>(&Tesselator::addVertex);
    member<void(V3)>(&Tesselator::addVertex);
    member<void(V4)>(&Tesselator::addVertex);
    member<void()>(&Tesselator::clearVertex);
    member<TessPolygon()>(&Tesselator::tesselate);

    value<Polygon>();
    member<void(TessPolygon)>(&Polygon::addTessPolygon);
    member<void()>(&Polygon::clearVertex);
    member<void()>(&Polygon::clear);
    member<void(V4)>(&Polygon::setColor);
    member<void(unsigned char*)>(&Polygon::setPattern);
    member<void()>(&Polygon::render);
}

void stripAndCircle() {
    value<TriangleStrip>();
    member<void(V2)>(&TriangleStrip::addVertex);
    member<void(V3)>(&TriangleStrip::addVertex);
    member<void(V4)>(&TriangleStrip::addVertex);
    member<void(V2, V4)>(&TriangleStrip::addVertex);
    member<void(V3, V4)>(&TriangleStrip::addVertex);
    member<void(V4, V4)>(&TriangleStrip::addVertex);
    member<void()>(&TriangleStrip::clearVertex);
    member<void(unsigned int, unsigned int)>(&TriangleStrip::setRect);
    member<void(V4)>(&TriangleStrip::setColor);
    member<void(bool)>(&TriangleStrip::setUseMultiColor);
    member<void(unsigned char*)>(&TriangleStrip::setPattern);
    member<void()>(&TriangleStrip::clear);
    member<void()>(&TriangleStrip::render);

    value<Circle>();
    member<void(double, unsigned int)>(&Circle::setCircle);
    member<void()>(&Circle::clearVertex);
    member<void(V4)>(&Circle::setColor);
    member<void(unsigned char*)>(&Circle::setPattern);
    member<void()>(&Circle::clear);
    member<void()>(&Circle::render);
}

/// What texture, video and terrain have.
template <typename Class>
void textured() {
    value<Class>();
    member<void(V3, V2)>(&Class::addVertex);
    member<void(V4, V2)>(&Class::addVertex);
    member<void()>(&Class::clearVertex);
    member<void()>(&Class::clear);
    member<void()>(&Class::render);
    member<void(V4)>(&Class::setColor);
    member<unsigned int()>(&Class::width);
    member<unsigned int()>(&Class::height);
}

void textures() {
    using Image = void(const unsigned char*, unsigned int, unsigned int, unsigned int);
    textured<Texture>();
    constant<int>(&Texture::RESTART_INDEX, -1);
    member<Image>(&Texture::load);
    member<void(const void*, unsigned int)>(&Texture::load);
    member<unsigned int(const void*)>(&Texture::createTexture);
    member<void(std::vector<V3>, std::vector<V2>)>(&Texture::addTexture);
    member<void(std::vector<V4>, std::vector<V2>)>(&Texture::addTexture);
    member<void(bool)>(&Texture::setUseMipMaps);
    member<void(unsigned int)>(&Texture::setWrapMode);

    textured<Video>();
    constant<int>(&Video::RESTART_INDEX, -1);
    member<void(unsigned int, unsigned int)>(&Video::init);
    member<void(const unsigned char*)>(&Video::putFrame);

    using Normals = void(const unsigned short*, unsigned int, unsigned int, unsigned int);
    textured<TextureTerrain>();
    member<Image>(&TextureTerrain::load);
    member<void(const void*, unsigned int)>(&TextureTerrain::load);
    member<Normals>(&TextureTerrain::loadNormals);
    member<void(unsigned int)>(&TextureTerrain::setColorMap);
    member<void(V3)>(&TextureTerrain::setLightDirection);
    member<void(bool)>(&TextureTerrain::setShading);
    member<void(double)>(&TextureTerrain::setShadingBrightness);
    member<void(double)>(&TextureTerrain::setShadingContrast);
    member<void(double)>(&TextureTerrain::setShadingFactor);
    member<void(double)>(&TextureTerrain::setTerrainOsm);
}

}  // namespace

void fills() {
    polygon();
    stripAndCircle();
    textures();
}

}  // namespace interface
