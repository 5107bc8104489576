// The stroke character set of the library.
#pragma once

#include <Orlek/OpenGL/StrokeSet.h>

namespace Orlek::Detail {

/// 128 characters; capitals are 8.924760 wide and 13.692291 high, the nominal height is 15.97.
const OpenGL::CHARSET_STRUCT& builtInStrokeSet();

}  // namespace Orlek::Detail
