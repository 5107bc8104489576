// From the ground up: relief, airspace, graticule, rings, route, traffic, aircraft and their text,
// then the plates.
#include "MapPicture.h"

#include <GL/gl.h>

#include <algorithm>

#include "CompassRose.h"
#include "FeedPlate.h"
#include "Graticule.h"
#include "HeightLegend.h"
#include "Ortho.h"
#include "OwnShip.h"
#include "ScaleBar.h"
#include "StatusPlates.h"
#include "WaypointLabels.h"

namespace MovingMap {

namespace {

// What is left free around the outer ring: room for the heading above it.
constexpr double ringMargin = 58.0;

// Airspace is cut at the map's edge, so far outside that the cut is not seen.
constexpr double airspaceMargin = 8.0;

// Where the heading's pointer ends, a little outside the outer ring.
Point headingTip(const MapView& view, const Scene& scene) {
    Position tip;
    Orlek::Geodetic::calcPointFromBrgDistance(scene.own.lat, scene.own.lon, scene.headingDeg,
                                              scene.rangeM * 1.05, tip.lat, tip.lon);
    return view.toScreen(tip);
}

}  // namespace

MapPicture::MapPicture(const std::string& fontFile, double scale, const Style& style,
                       Orlek::Geodetic::HeightMap& terrain, const Route& route,
                       const RoutePath& path, const Charts& charts)
    : mCanvas(fontFile, scale, style),
      mRelief(charts),
      mTerrain(terrain),
      mRoute(route),
      mPath(path),
      mCharts(charts),
      mView({}, 1.0, 0.0, Point(0.0, 0.0), Point(1.0, 1.0)) {}

MapView MapPicture::viewFor(const Scene& scene, Point size, const Position& centre,
                            double infoHeight) const {
    const double mapHeight = size.y - infoHeight;
    const double radius =
        std::max(std::min(size.x, mapHeight) / 2.0 - ringMargin * mCanvas.unit, 40.0);
    const Point focus(size.x / 2.0, infoHeight + mapHeight / 2.0);
    return MapView(centre, scene.rangeM / radius, scene.headingUp ? scene.headingDeg : 0.0, focus,
                   size);
}

MapPicture::Layout MapPicture::layOut(const Scene& scene, Point size, double infoHeight) const {
    const double margin = 10.0 * mCanvas.unit;
    Layout layout{Box{Point(0.0, infoHeight), size},
                  headingBox(mCanvas, size),
                  modeBox(mCanvas, size),
                  scaleBarBox(mCanvas, mView, Point(margin, infoHeight + margin)),
                  std::nullopt,
                  std::nullopt};
    const Box legend = heightLegendBox(mCanvas, Point(size.x - margin, size.y - margin));
    if (legend.high.y - legend.low.y < (size.y - infoHeight) / 2.0) {
        layout.legend = legend;
    }
    if (scene.live) {
        layout.feed = feedBox(mCanvas, layout.mode, *scene.live);
    }
    return layout;
}

std::vector<Box> MapPicture::Layout::plates() const {
    std::vector<Box> boxes{heading, mode, scaleBar};
    for (const auto& box : {legend, feed}) {
        if (box) {
            boxes.push_back(*box);
        }
    }
    return boxes;
}

void MapPicture::drawMap(const Scene& scene, const Layout& layout) {
    mRelief.draw();
    const std::vector<AirspaceShape> airspace =
        projectAirspace(mCharts.airspace, mView, layout.map.grown(airspaceMargin * mCanvas.unit));
    drawAirspace(mCanvas, airspace);
    std::vector<Box> figures = drawGraticule(mCanvas, mView, layout.map, layout.plates());
    const std::vector<Box> rose = drawCompassRose(mCanvas, mView, scene);
    figures.insert(figures.end(), rose.begin(), rose.end());
    const RouteLine line = projectRoute(mPath, mView, scene.alongM);
    drawRoute(mCanvas, mView, mRoute, line, scene.next.index);
    if (scene.live) {
        drawTrails(mCanvas, mView, *scene.live);
        drawTargets(mCanvas, mView, scene);
    }
    drawOwnShip(mCanvas, mView, scene);
    addLabels(scene, layout, airspace, line, figures);
}

void MapPicture::addLabels(const Scene& scene, const Layout& layout,
                           const std::vector<AirspaceShape>& airspace, const RouteLine& line,
                           const std::vector<Box>& figures) {
    LabelPlacer placer(layout.map.grown(-6.0 * mCanvas.unit));
    for (const Box& box : layout.plates()) {
        placer.block(box);
    }
    for (const Box& box : figures) {
        placer.block(box);
    }
    const Point own = mView.toScreen(scene.own);
    placer.block(Box{own, own}.grown(18.0 * mCanvas.unit));
    placer.avoid({own, headingTip(mView, scene)});
    blockRoute(mCanvas, mView, mRoute, line, placer);
    if (scene.live) {
        addTargetLabels(mCanvas, mView, scene, placer, layout.map, mTargetPlaces);
    }
    addWaypointLabels(mCanvas, mView, mRoute, scene.next.index, placer, layout.map);
    addAirspaceLabels(mCanvas, airspace, placer, layout.map);
}

void MapPicture::drawPlates(const Scene& scene, const Layout& layout) {
    drawHeading(mCanvas, layout.heading, scene);
    drawMode(mCanvas, layout.mode, scene);
    drawScaleBar(mCanvas, mView, layout.scaleBar);
    if (layout.legend) {
        drawHeightLegend(mCanvas, *layout.legend);
    }
    if (layout.feed) {
        drawFeed(mCanvas, *layout.feed, *scene.live);
    }
}

void MapPicture::draw(const Scene& scene, Point size, const Position& centre, int reliefStep) {
    const InfoLine info(mCanvas, scene, size.x);
    mView = viewFor(scene, size, centre, info.height());
    glViewport(0, 0, static_cast<int>(size.x), static_cast<int>(size.y));
    setPixelMatrix(size);
    mRelief.update(mTerrain, mView, reliefStep);
    const Layout layout = layOut(scene, size, info.height());
    drawMap(scene, layout);
    mCanvas.drawLabels();
    drawPlates(scene, layout);
    info.draw(mCanvas);
    mCanvas.drawPlateTexts();
}

}  // namespace MovingMap
