#include "VerticalSpeed.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Instruments {

namespace {

constexpr double most = 2000.0;

// The square root widens the scale where small changes matter.
float height(double fpm, float half) {
    const double share = std::sqrt(std::min(std::abs(fpm), most) / most);
    return static_cast<float>(std::copysign(share, fpm)) * half;
}

}  // namespace

void drawVerticalSpeed(Canvas& canvas, const Box& box, double climbFpm) {
    const Point middle = box.centre();
    const float half = box.height() / 2 - 16;
    canvas.fill(box, plate);
    Points ticks;
    for (const int fpm : {-2000, -1500, -1000, -500, -250, 0, 250, 500, 1000, 1500, 2000}) {
        const float y = middle.y + height(fpm, half);
        const bool numbered = fpm % 1000 == 0;
        ticks.insert(ticks.end(), {{box.left, y}, {box.left + (numbered ? 12.0F : 7.0F), y}});
        if (numbered && fpm != 0) {
            canvas.text(std::to_string(std::abs(fpm) / 1000), {box.left + 17, y}, 16, white,
                        Canvas::Align::CENTER_LEFT);
        }
    }
    canvas.segments(ticks, white, 2);
    canvas.clip(box);
    canvas.line({{box.right + 40, middle.y}, {box.left + 14, middle.y + height(climbFpm, half)}},
                green, 3);
    canvas.noClip();
    if (std::abs(climbFpm) >= 50.0) {
        char text[16];
        std::snprintf(text, sizeof text, "%+.0f", std::round(climbFpm / 50.0) * 50.0);
        const float y = climbFpm > 0.0 ? box.top + 14 : box.bottom - 14;
        canvas.label(text, {middle.x, y}, 14, green);
    }
}

}  // namespace Instruments
