// A GL call between two drains of the error flags, so that earlier errors are not blamed on it.
#pragma once

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/Errors.h"

namespace Orlek::Detail {

/// Does nothing without OpenGL.
/// @param label the name of the GL function, for the error lines.
template <typename Call>
void checked(const char* label, Call call) {
    if (glReady()) {
        clearErrors();
        call();
        reportErrors(label);
    }
}

}  // namespace Orlek::Detail
