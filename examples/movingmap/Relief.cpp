#include "Relief.h"

#include "SampleRelief.h"
#include "Voids.h"

namespace MovingMap {

void Relief::update(Orlek::Geodetic::HeightMap& terrain, const MapView& view, int step) {
    if (mView && *mView == view && mStep <= step) {
        return;
    }
    sampleRelief(terrain, view, step, mImage);
    hatchVoids(mImage, view.metresPerPixel() * step, step);
    if (mCharts.image) {
        layMap(*mCharts.image, mCharts.imageShare, view, step, mImage);
    }
    mLayers.show(mImage, step, view.upDeg(), mCharts.imageShare);
    mView = view;
    mStep = step;
}

}  // namespace MovingMap
