#pragma once

/// @file
/// Everything of Orlek::Misc: the command line, settings, timer, lock and string helpers.

#include <Orlek/Misc/CmdLine.h>
#include <Orlek/Misc/Mutex.h>
#include <Orlek/Misc/Property.h>
#include <Orlek/Misc/StringHelpers.h>
#include <Orlek/Misc/Timer.h>

/// Configuration and small services.
namespace Orlek::Misc {}
