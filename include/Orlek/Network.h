#pragma once

/// @file
/// Everything of Orlek::Network: hosts and adapters.

#include <Orlek/Network/Network.h>

/// Links to other programs, host names and network adapters.
namespace Orlek::Network {}
