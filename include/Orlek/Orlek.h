#pragma once

/// @file
/// Everything the library offers.

#include <Orlek/FileSystem.h>
#include <Orlek/Geodetic.h>
#include <Orlek/Math.h>
#include <Orlek/Misc.h>
#include <Orlek/Network.h>
#include <Orlek/OpenGL.h>
#include <Orlek/Version.h>
#include <Orlek/XML.h>
