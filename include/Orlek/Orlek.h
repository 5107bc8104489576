#pragma once

/// @file
/// Everything the library offers.

#include <Orlek/Version.h>
