#pragma once

/// @file
/// Everything of Orlek::Misc: the command line, timer, lock and string helpers.

#include <Orlek/Misc/CmdLine.h>
#include <Orlek/Misc/Mutex.h>
#include <Orlek/Misc/StringHelpers.h>
#include <Orlek/Misc/Timer.h>

/// Configuration and small services.
namespace Orlek::Misc {}
