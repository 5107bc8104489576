// The GL objects that exist. Needs a current context, and GL/glew.h before any other GL header.
#pragma once

#include <GL/glew.h>

namespace OrlekTest {

// Names are not given twice, so that a program with many tests gets that far.
inline constexpr GLuint mostNames = 5000;

/// How many vertex arrays, buffers and textures exist, by their names up to `most`.
inline int liveNames(GLuint most = mostNames) {
    int count = 0;
    for (GLuint name = 1; name < most; ++name) {
        count += glIsVertexArray(name) + glIsBuffer(name) + glIsTexture(name);
    }
    return count;
}

}  // namespace OrlekTest
