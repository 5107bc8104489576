#pragma once

/// @file
/// Everything the library offers.

#include <Orlek/Misc.h>
#include <Orlek/Version.h>
