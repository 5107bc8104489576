// Plain OpenGL, as an application would write it beside the library.
#define GL_GLEXT_PROTOTYPES
#include "VertexArray.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <cmath>

namespace Gallery {

VertexArray::VertexArray(const Points& points, const std::vector<Colour>& colours)
    : mCount(static_cast<int>(points.size())) {
    glGenVertexArrays(1, &mArray);
    glBindVertexArray(mArray);
    std::vector<float> places;
    std::vector<float> lengths;
    float length = 0.0F;
    Point before = points.empty() ? Point() : points.front();
    for (const Point& point : points) {
        length += std::hypot(point.x - before.x, point.y - before.y);
        places.insert(places.end(), {point.x, point.y, 0.0F});
        lengths.push_back(length);
        before = point;
    }
    std::vector<float> channels;
    for (const Colour& colour : colours) {
        channels.insert(channels.end(), {colour.x, colour.y, colour.z, colour.w});
    }
    addAttribute(0, 3, places);
    addAttribute(5, 1, lengths);
    if (!colours.empty()) {
        addAttribute(4, 4, channels);
    }
    glBindVertexArray(0);
}

VertexArray::~VertexArray() {
    glDeleteVertexArrays(1, &mArray);
    glDeleteBuffers(static_cast<int>(mBuffers.size()), mBuffers.data());
}

void VertexArray::addAttribute(unsigned int location, int size, const std::vector<float>& values) {
    unsigned int& buffer = mBuffers.emplace_back();
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(values.size() * sizeof(float)),
                 values.data(), GL_STATIC_DRAW);
    glVertexAttribPointer(location, size, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(location);
}

void VertexArray::draw(unsigned int mode) const {
    glBindVertexArray(mArray);
    glDrawArrays(mode, 0, mCount);
    glBindVertexArray(0);
}

Points withAdjacency(Points points) {
    if (!points.empty()) {
        points.insert(points.begin(), points.front());
        points.push_back(points.back());
    }
    return points;
}

}  // namespace Gallery
