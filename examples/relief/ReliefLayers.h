// A relief image on the screen.
#pragma once

#include <Orlek/OpenGL/TextureTerrain.h>

#include "ReliefImage.h"

namespace MovingMap {

/// Draws relief images with the library's terrain class. All calls, construction and destruction
/// included, need the GL context.
class ReliefLayers {
public:
    ReliefLayers();
    ~ReliefLayers();
    ReliefLayers(const ReliefLayers&) = delete;
    ReliefLayers& operator=(const ReliefLayers&) = delete;

    /// Takes an image over; it may change or go afterwards.
    /// @param step pixels of the picture along the side of a texel
    /// @param upDeg the direction at the top of the picture, degrees clockwise from north
    /// @param mapShare of the image's map, if it has one, against the height colours
    void show(const ReliefImage& image, int step, double upDeg, double mapShare = 0.0);

    /// Draws from the lower left corner of the picture; see setPixelMatrix.
    void draw();

private:
    void setLight(double upDeg);

    Orlek::OpenGL::TextureTerrain mTerrain;
    Orlek::OpenGL::TextureTerrain mCover;
    unsigned mColourMap = 0;
};

}  // namespace MovingMap
