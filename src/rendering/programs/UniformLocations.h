// Remembered uniform locations: looking a name up in the driver costs more than setting the value.
#pragma once

#include <string_view>

namespace Orlek::Detail {

/// Remembers the locations of a program that has just been linked, so while its context is current.
void rememberLocations(unsigned program);

/// Forgets a program: before it is linked, and when its name is given out anew.
void forgetLocations(unsigned program);

/// The location of a uniform, -1 if the program has none of that name. Asks the driver for programs
/// that are not remembered, and for elements of arrays.
int uniformLocation(unsigned program, std::string_view name);

}  // namespace Orlek::Detail
