#include "rendering/gl/LineState.h"

#include <GL/glew.h>

namespace Orlek::Detail {

namespace {

void setEnabled(GLenum capability, bool on) {
    if (on) {
        glEnable(capability);
    } else {
        glDisable(capability);
    }
}

void setSmooth(bool smooth) {
    setEnabled(GL_LINE_SMOOTH, smooth);
    setEnabled(GL_BLEND, smooth);
}

}  // namespace

LineState::LineState(bool smooth) : mStippleToo(false) {
    setSmooth(smooth);
}

LineState::LineState(bool smooth, float width) : LineState(smooth) {
    glLineWidth(width);
}

LineState::LineState(bool smooth, float width, unsigned short stipple) : mStippleToo(true) {
    setSmooth(smooth);
    glLineWidth(width);
    setEnabled(GL_LINE_STIPPLE, stipple != 0);
    if (stipple != 0) {
        glLineStipple(1, stipple);
    }
}

void LineState::smoothFromNowOn(float width) {
    setSmooth(true);
    glLineWidth(width);
}

LineState::~LineState() {
    if (mStippleToo) {
        glDisable(GL_LINE_STIPPLE);
    }
    glDisable(GL_LINE_SMOOTH);
}

}  // namespace Orlek::Detail
