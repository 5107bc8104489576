// The fixed-function state of lines, for one draw.
#pragma once

namespace Orlek::Detail {

class LineState {
public:
    /// Sets smoothing only: line width and stipple stay as they are.
    explicit LineState(bool smooth);
    /// Sets smoothing and the width in pixels: the stipple stays as it is.
    LineState(bool smooth, float width);
    /// Sets smoothing, the width in pixels and the 16-bit stipple pattern (0: solid).
    LineState(bool smooth, float width, unsigned short stipple);
    /// Switches off what the constructor may have switched on; blending and width stay.
    ~LineState();
    /// Switches smoothing and blending on, to stay, and sets the width in pixels.
    static void smoothFromNowOn(float width);
    LineState(const LineState&) = delete;
    LineState& operator=(const LineState&) = delete;

private:
    bool mStippleToo;
};

}  // namespace Orlek::Detail
