#pragma once

/// @file
/// Everything the library offers.

<<<<<<< Updated upstream
=======
#include <Orlek/Geodetic.h>
>>>>>>> Stashed changes
#include <Orlek/Math.h>
#include <Orlek/Misc.h>
#include <Orlek/Version.h>
