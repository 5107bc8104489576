// Loading of the OpenGL entry points.
#pragma once

namespace Orlek::Detail {

/// True when the entry points of OpenGL 3.3 are there; nothing of the library calls OpenGL
/// otherwise. The first call loads them and needs a current context.
bool glReady();

/// Prints the loader's complaint, if it has one. Tries again first when loading failed earlier, for
/// example because no context was current then.
void reportEntryPoints();

/// Sends the driver's error messages to the standard error stream, where the driver can.
void enableDebugOutput();

}  // namespace Orlek::Detail
