// The picture: a route, an airspace and the own ship, the heading up, inside a compass rose.
#pragma once

#include <Orlek/OpenGL.h>

/// Needs the context current from construction to destruction.
class Display {
public:
    Display();
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Draws a frame.
    /// @param width, height of the framebuffer in pixels.
    /// @param scale pixels for what is a pixel at a scale of 1.
    /// @param seconds since the start: the own ship flies.
    void draw(int width, int height, float scale, double seconds);

private:
    void buildRoute();
    void buildAirspace();
    void buildRose();
    void drawMap(double radius, float scale, double heading, double flown);
    void drawNames(double metre, double heading);
    void drawRose(double radius, float scale, double heading);

    // In metres east and north of the first waypoint.
    Orlek::OpenGL::LineStrips mRoute;
    Orlek::OpenGL::Polygon mAirspace;
    Orlek::OpenGL::LineLoops mBorder;
    // In units of the rose's radius.
    Orlek::OpenGL::Lines mTicks;
    Orlek::OpenGL::LineLoops mRings;
    // In pixels.
    Orlek::OpenGL::LineStrips mShip;
    Orlek::OpenGL::VectorFont mText;
};
