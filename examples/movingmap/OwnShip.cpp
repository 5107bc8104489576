// Fuselage, wing and tailplane as wide strokes over wider dark ones.
#include "OwnShip.h"

#include <numbers>

namespace MovingMap {

void drawOwnShip(Canvas& canvas, const MapView& view, const Scene& scene) {
    if (scene.ownState == OwnShipState::unknown) {
        return;
    }
    const bool old = scene.ownState == OwnShipState::old;
    const Point centre = view.toScreen(scene.own);
    const auto place = [&](double right, double ahead) {
        Point offset(right * canvas.unit, ahead * canvas.unit);
        offset.Rotate((view.upDeg() - scene.headingDeg) * std::numbers::pi / 180.0);
        return centre + offset;
    };
    canvas.stroke.segment(place(0.0, 13.0), place(0.0, -15.0));
    canvas.stroke.segment(place(-15.0, 2.0), place(15.0, 2.0));
    canvas.stroke.segment(place(-7.0, -12.0), place(7.0, -12.0));
    canvas.stroke.draw({.colour = old ? grey : canvas.style.colours.ownShip,
                        .width = 4.0 * canvas.unit,
                        .rim = black,
                        .rimWidth = 1.6 * canvas.unit});
    if (old) {
        const double reach = 17.0 * canvas.unit;
        const Point up(reach, reach);
        const Point down(reach, -reach);
        canvas.stroke.segment(centre - up, centre + up);
        canvas.stroke.segment(centre - down, centre + down);
        canvas.stroke.draw({.colour = red,
                            .width = 3.0 * canvas.unit,
                            .rim = black,
                            .rimWidth = 1.2 * canvas.unit});
    }
}

}  // namespace MovingMap
