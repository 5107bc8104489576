// Vertex buffers of the application's own, for its own shader programs and the wide-line programs.
#pragma once

#include <vector>

#include "Sheet.h"

namespace Gallery {

/// A vertex array with the attributes that the standard programs bind. Needs the GL context from
/// construction to destruction.
class VertexArray {
public:
    /// Uploads points as attribute 0 "vertex" and, as attribute 5 "position", how far each is along
    /// the line, in the unit of the points.
    /// @param colours attribute 4 "color", one for each point; may be empty
    explicit VertexArray(const Points& points, const std::vector<Colour>& colours = {});
    ~VertexArray();

    VertexArray(const VertexArray&) = delete;
    VertexArray& operator=(const VertexArray&) = delete;

    /// Draws with the program in use. @param mode a GL primitive, for example GL_LINES.
    void draw(unsigned int mode) const;

private:
    void addAttribute(unsigned int location, int size, const std::vector<float>& values);

    unsigned int mArray = 0;
    std::vector<unsigned int> mBuffers;
    int mCount;
};

/// The points of a line strip as `GL_LINE_STRIP_ADJACENCY` takes them: both ends twice.
Points withAdjacency(Points points);

}  // namespace Gallery
