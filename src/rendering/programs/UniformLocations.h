// Remembered uniform locations: looking a name up in the driver costs more than setting the value.
#pragma once

#include <string_view>

namespace Orlek::Detail {

/// From now on remembers the locations of a program, which has just been linked.
void rememberLocations(unsigned program);

/// Forgets a program: before it is linked, and when its name is given out anew.
void forgetLocations(unsigned program);

/// The location of a uniform, -1 if the program has none of that name. Asks the driver the first
/// time, and every time for programs that are not remembered.
int uniformLocation(unsigned program, std::string_view name);

}  // namespace Orlek::Detail
