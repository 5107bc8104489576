// The shaded relief under the map.
#pragma once

#include <Orlek/Geodetic.h>

#include <optional>

#include "Charts.h"
#include "MapView.h"
#include "ReliefImage.h"
#include "ReliefLayers.h"

namespace MovingMap {

/// Keeps the relief of the last view and draws it. Needs the GL context.
class Relief {
public:
    /// @param charts whose map image is laid over the relief, if there is one; must outlive this
    explicit Relief(const Charts& charts) : mCharts(charts) {}

    /// Samples the terrain of a view, one texel for @p step x @p step pixels; nothing is done when
    /// the last update was the same or finer.
    void update(Orlek::Geodetic::HeightMap& terrain, const MapView& view, int step);

    /// Fills the view of the last update.
    void draw() { mLayers.draw(); }

    /// Whether the last update found terrain everywhere.
    bool complete() const { return mImage.complete; }

private:
    const Charts& mCharts;
    ReliefLayers mLayers;
    std::optional<MapView> mView;
    int mStep = 0;
    ReliefImage mImage;
};

}  // namespace MovingMap
