// A whole picture, layer by layer.
#pragma once

#include <Orlek/Geodetic.h>

#include <optional>
#include <string>
#include <vector>

#include "AirspaceLayer.h"
#include "Canvas.h"
#include "Charts.h"
#include "InfoLine.h"
#include "LabelPlacer.h"
#include "Relief.h"
#include "RouteLayer.h"
#include "RoutePath.h"
#include "Scene.h"
#include "TrafficLayer.h"

namespace MovingMap {

/// Draws scenes into the framebuffer that is bound. Needs the GL context from construction to
/// destruction.
class MapPicture {
public:
    /// The references must outlive the object.
    /// @param scale pixels of the picture for a pixel of an ordinary screen
    MapPicture(const std::string& fontFile, double scale, const Style& style,
               Orlek::Geodetic::HeightMap& terrain, const Route& route, const RoutePath& path,
               const Charts& charts);

    /// Draws one scene.
    /// @param size width and height of the framebuffer in pixels
    /// @param centre the position in the middle of the map
    /// @param reliefStep pixels for each texel of the relief: 1 the finest
    void draw(const Scene& scene, Point size, const Position& centre, int reliefStep);

    /// Whether the last picture had terrain everywhere.
    bool terrainComplete() const { return mRelief.complete(); }

    /// The view of the last picture.
    const MapView& view() const { return mView; }

private:
    MapView viewFor(const Scene& scene, Point size, const Position& centre,
                    double infoHeight) const;
    /// Where everything that is no map goes.
    struct Layout {
        Box map;
        Box heading;
        Box mode;
        Box scaleBar;
        std::optional<Box> legend;  ///< Where there is room for it.
        std::optional<Box> feed;    ///< With live data.

        std::vector<Box> plates() const;
    };

    Layout layOut(const Scene& scene, Point size, double infoHeight) const;
    void drawMap(const Scene& scene, const Layout& layout);
    void addLabels(const Scene& scene, const Layout& layout,
                   const std::vector<AirspaceShape>& airspace, const RouteLine& line,
                   const std::vector<Box>& figures);
    void drawPlates(const Scene& scene, const Layout& layout);

    Canvas mCanvas;
    Relief mRelief;
    Orlek::Geodetic::HeightMap& mTerrain;
    const Route& mRoute;
    const RoutePath& mPath;
    const Charts& mCharts;
    MapView mView;
    LabelPlaces mTargetPlaces;
};

}  // namespace MovingMap
