// Loading of the OpenGL entry points.
#pragma once

namespace Orlek::Detail {

/// True when the entry points of OpenGL 3.3 are there; nothing of the library calls OpenGL
/// otherwise. The first call with a current context loads them.
bool glReady();

/// Whether the entry points are there and a context is current. Asks the driver.
bool hasContext();

/// Prints the loader's complaint, if it has one.
void reportEntryPoints();

/// Sends the driver's error messages in the current context to the standard error stream, where the
/// driver can.
void enableDebugOutput();

}  // namespace Orlek::Detail
