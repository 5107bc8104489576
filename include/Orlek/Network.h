#pragma once

/// @file
/// Everything of Orlek::Network: connections, datagrams, hosts and adapters.

#include <Orlek/Network/MsgHeader.h>
#include <Orlek/Network/Network.h>
#include <Orlek/Network/SocketTcp.h>
#include <Orlek/Network/SocketTcpServer.h>
#include <Orlek/Network/SocketUdp.h>

/// Links to other programs, host names and network adapters.
namespace Orlek::Network {}
