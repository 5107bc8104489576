// Two layers of the terrain class: height colours, and a map if there is one, with shading below,
// and a picture of water and missing terrain above.
#include "ReliefLayers.h"

#include <GL/gl.h>

#include <cmath>
#include <numbers>

#include "HeightColours.h"

namespace MovingMap {

namespace {

using Orlek::Math::Vector2;
using Orlek::Math::Vector3;
using Orlek::OpenGL::TextureTerrain;

unsigned createColourMap() {
    const auto table = colourTable();
    unsigned name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_1D, name);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_1D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexImage1D(GL_TEXTURE_1D, 0, GL_RGB8, colourTableSize, 0, GL_RGB, GL_UNSIGNED_BYTE,
                 table.data());
    glBindTexture(GL_TEXTURE_1D, 0);
    return name;
}

// The whole image over as many pixels as its texels stand for.
void setQuad(TextureTerrain& layer, int width, int height) {
    const auto right = static_cast<float>(width);
    const auto top = static_cast<float>(height);
    layer.clearVertex();
    layer.addVertex(Vector3<float>(0.0F, 0.0F, 0.0F), Vector2<float>(0.0F, 0.0F));
    layer.addVertex(Vector3<float>(right, 0.0F, 0.0F), Vector2<float>(1.0F, 0.0F));
    layer.addVertex(Vector3<float>(0.0F, top, 0.0F), Vector2<float>(0.0F, 1.0F));
    layer.addVertex(Vector3<float>(right, top, 0.0F), Vector2<float>(1.0F, 1.0F));
}

}  // namespace

ReliefLayers::ReliefLayers() : mColourMap(createColourMap()) {
    mTerrain.setColorMap(mColourMap);
    mTerrain.setShading(true);
    mTerrain.setShadingFactor(0.7);
    mTerrain.setShadingContrast(1.05);
    mTerrain.setShadingBrightness(1.1);
    mCover.setTerrainOsm(1.0);
}

ReliefLayers::~ReliefLayers() {
    mTerrain.clear();
    mCover.clear();
    glDeleteTextures(1, &mColourMap);
}

// From the upper left of the picture, whichever way the map is turned: lit from below, valleys
// look like ridges.
void ReliefLayers::setLight(double upDeg) {
    const double from = (upDeg - 45.0) * std::numbers::pi / 180.0;
    const double height = std::tan(42.0 * std::numbers::pi / 180.0);
    mTerrain.setLightDirection(Vector3<float>(static_cast<float>(-std::sin(from)),
                                              static_cast<float>(-std::cos(from)),
                                              static_cast<float>(-height)));
}

void ReliefLayers::show(const ReliefImage& image, int step, double upDeg, double mapShare) {
    const auto width = static_cast<unsigned>(image.width);
    const auto height = static_cast<unsigned>(image.height);
    if (!image.map.empty()) {
        mTerrain.load(image.map.data(), width, height, GL_RGBA);
        mTerrain.setTerrainOsm(mapShare);
    }
    mTerrain.loadNormals(image.normals.data(), width, height, GL_RGBA);
    mCover.load(image.cover.data(), width, height, GL_RGBA);
    setQuad(mTerrain, image.width * step, image.height * step);
    setQuad(mCover, image.width * step, image.height * step);
    setLight(upDeg);
}

void ReliefLayers::draw() {
    mTerrain.render();
    mCover.render();
}

}  // namespace MovingMap
