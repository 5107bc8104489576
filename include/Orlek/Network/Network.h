// Services around hosts: names, addresses, network adapters.
#pragma once

#include <Orlek/Export.h>

#include <cstdint>
#include <list>
#include <string>

namespace Orlek::Network {

/// Host names, addresses as text, and the network adapters of this machine. IPv4 throughout, all
/// addresses in host byte order: 0x7F000001 is 127.0.0.1.
///
/// @code
/// for (const auto& adapter : Orlek::Network::Network::getNetworkAdapters()) {
///     const auto text = Orlek::Network::Network::getAddressString(adapter.address);
///     std::printf("%s %s\n", adapter.name.c_str(), text.c_str());  // eth0 192.168.1.17
/// }
/// @endcode
class ORLEK_EXPORT Network {
public:
    /// One network adapter of this machine.
    struct Adapter {
        std::string name;                    ///< its name in the system: eth0
        std::uint32_t address = 0;           ///< its first IPv4 address, host byte order
        std::uint32_t broadcastAddress = 0;  ///< address | ~netmask, host byte order
        std::uint32_t reserved = 0;          ///< always 0
    };

    Network() = default;
    ~Network() = default;

    /// Looks a host up. It waits for name servers as long as the system does, seconds at worst. Any
    /// thread may call it.
    /// @param name a host name ("localhost") or a dotted address ("192.168.1.17").
    /// @return the address in host byte order; of several the last one that is not 0. 0 when there
    ///         is none; where the system refuses the name, "getaddrinfo: <its reason>" goes to the
    ///         standard error stream.
    static unsigned long getAddressFromName(const std::string& name);

    /// Any thread may call it.
    /// @param address an address in host byte order; bits above the lowest 32 are not looked at.
    /// @return its dotted text: 0xC0A80001 gives "192.168.0.1".
    static std::string getAddressString(unsigned long address);

    /// Lists the network adapters that have an IPv4 address, loopback and those with address 0 left
    /// out. Any thread may call it.
    /// @return the adapters in the order of the system, each once. Empty when the system does not
    ///         tell; it then prints "GetAdaptersInfo failed with error: <errno>".
    static std::list<Adapter> getNetworkAdapters();
};

}  // namespace Orlek::Network
