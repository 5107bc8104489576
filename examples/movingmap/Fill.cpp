// One-colour shapes by way of the terrain class: its map texture times its colour.
#include "Fill.h"

#include <GL/gl.h>

namespace MovingMap {

Fill::Fill() {
    const unsigned char whiteTexel[] = {255, 255, 255, 255};
    mStrip.load(whiteTexel, 1, 1, GL_RGBA);
    mStrip.setTerrainOsm(1.0);
}

void Fill::rect(Point low, Point high, const Colour& colour) {
    strip({low, Point(high.x, low.y), Point(low.x, high.y), high}, colour);
}

void Fill::strip(const std::vector<Point>& points, const Colour& colour) {
    mStrip.clearVertex();
    for (const Point& point : points) {
        mStrip.addVertex(Orlek::Math::Vector3<float>(static_cast<float>(point.x),
                                                     static_cast<float>(point.y), 0.0F),
                         Orlek::Math::Vector2<float>(0.5F, 0.5F));
    }
    mStrip.setColor(colour);
    mStrip.render();
}

}  // namespace MovingMap
