// What the system knows about hosts and its own network interfaces. Every address is IPv4 in host
// byte order: 0x7F000001 is 127.0.0.1. All functions may be called from any thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Orlek::Detail {

/// What became of a host name.
struct ResolvedName {
    std::vector<std::uint32_t> addresses;  ///< in the order of the system; may be empty
    std::string error;                     ///< the text of the system; empty when the name is known
};

/// Looks a host name or a dotted address up. Waits for name servers as long as the system does.
ResolvedName resolveName(const std::string& name);

/// The name of this host, at most 79 characters; empty when the system does not tell.
std::string hostName();

/// One network interface with the first IPv4 address and netmask it has.
struct InterfaceAddress {
    std::string name;
    std::uint32_t address = 0;
    std::uint32_t netmask = 0;
    bool isLoopback = false;

    /// The directed broadcast address: all bits of the host set.
    [[nodiscard]] std::uint32_t broadcast() const { return address | ~netmask; }
};

/// Replaces `interfaces` by all interfaces that have an IPv4 address, in the order of the system.
/// False, with errno set, when the system does not tell.
bool listInterfaces(std::vector<InterfaceAddress>& interfaces);

}  // namespace Orlek::Detail
