// The camera's picture in a frame.
#pragma once

#include "Camera.h"
#include "Canvas.h"

namespace Instruments {

/// Needs the GL context.
class VideoInset {
public:
    VideoInset();
    ~VideoInset() { mVideo.clear(); }

    VideoInset(const VideoInset&) = delete;
    VideoInset& operator=(const VideoInset&) = delete;

    void draw(Canvas& canvas, const Box& box, const FlightState& state);

private:
    Camera mCamera;
    Orlek::OpenGL::Video mVideo;
};

}  // namespace Instruments
