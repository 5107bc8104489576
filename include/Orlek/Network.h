#pragma once

/// @file
/// Everything of Orlek::Network: datagrams, hosts and adapters.

#include <Orlek/Network/Network.h>
#include <Orlek/Network/SocketUdp.h>

/// Links to other programs, host names and network adapters.
namespace Orlek::Network {}
