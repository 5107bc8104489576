// From pixels to clip space, where both axes run from -1 to 1.
#include "Ortho.h"

#include <Orlek/OpenGL.h>

namespace MovingMap {

void setPixelMatrix(Orlek::Math::Vector2<double> size) {
    Orlek::OpenGL::GlHandler::instance().setViewPort(size);
    Orlek::OpenGL::MatrixLoadIdent();
    Orlek::OpenGL::MatrixTranslate(-1.0, -1.0, 0.0);
    Orlek::OpenGL::MatrixScale(2.0 / size.x, 2.0 / size.y, 1.0);
}

}  // namespace MovingMap
