#include "VideoInset.h"

namespace Instruments {

VideoInset::VideoInset() {
    mVideo.init(Camera::width, Camera::height);
}

void VideoInset::draw(Canvas& canvas, const Box& box, const FlightState& state) {
    mVideo.putFrame(mCamera.film(state).data());
    const Point middle = box.centre();
    {
        const Placed placed(middle);
        Orlek::OpenGL::MatrixScale(box.width() / Camera::width, box.height() / Camera::height, 1);
        mVideo.render();
    }
    canvas.segments({{middle.x - 26, middle.y},
                     {middle.x - 8, middle.y},
                     {middle.x + 8, middle.y},
                     {middle.x + 26, middle.y},
                     {middle.x, middle.y - 18},
                     {middle.x, middle.y - 8},
                     {middle.x, middle.y + 8},
                     {middle.x, middle.y + 18}},
                    white, 1.5F);
    canvas.fill({box.left, box.top - 24, box.left + 104, box.top}, plate);
    canvas.label("NOSE CAM", {box.left + 8, box.top - 12}, 14, white, Canvas::Align::BOTTOM_LEFT);
    canvas.loop({{box.left, box.bottom},
                 {box.left, box.top},
                 {box.right, box.top},
                 {box.right, box.bottom}},
                grey, 2);
}

}  // namespace Instruments
