// Services around hosts: names, addresses, network adapters, downloads.
#pragma once

#include <Orlek/Export.h>

#include <cstdint>
#include <list>
#include <map>
#include <string>

namespace Orlek::Network {

/// Host names, addresses as text, the network adapters of this machine, and files from web servers.
/// IPv4 throughout, all addresses in host byte order: 0x7F000001 is 127.0.0.1.
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

    /// Looks a host up. It waits for name servers as long as the system does: with the usual
    /// settings, 5 s twice for each of at most three servers that do not answer, 30 s. Any thread
    /// may call it.
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

    /// Downloads one file over HTTP/1.1 (RFC 9112), port 80. Made for map images and tiles from a
    /// server of one's own; for anything else use a full HTTP client.
    ///
    /// The answer is not interpreted: what follows its header is written as it came, also the page
    /// of an error, of a redirect, or a chunked body. Answer and header together are cut at
    /// 1,048,576 bytes. The answer also ends where the server closes or pauses for 50 ms, so a slow
    /// link can cut it: compare the size of the file when that matters. The file is written when
    /// the answer has ended; without a body it stays as it was.
    ///
    /// The call waits: for name servers as long as the system does, to connect as long as the
    /// system does (about two minutes for an address that never answers), for the first byte 1 s,
    /// for each further one less than 50 ms. A server that sends single bytes just in time can hold
    /// it for 1,048,576 x 50 ms, 14.6 hours; an answer that comes at once costs 50 ms when the
    /// server keeps the connection open. The address of a host is kept for the life of the process.
    ///
    /// A folder that is missing is made. A file that cannot be opened prints "could not open
    /// <%s>\n" and the system's reason for "fopen"; one that could only be written in part, as on a
    /// full disk, prints "could not write <%s>\n" and the reason for "fwrite". One thread at a time
    /// may call it.
    ///
    /// @code
    /// Orlek::Network::Network::getFileHttp("http://maps.example/tiles/7.png", "cache/7.png");
    /// @endcode
    /// @param url scheme "//" host "/" path, or host "/" path; the scheme is not looked at. A port
    ///        or user name would be taken for a part of the host, a query is one of the path.
    ///        Refused with a control character in it, before anything is sent.
    /// @param fileName where the body goes; it replaces what is there.
    /// @return whether the server was reached and answered, not whether there is a file now. False
    ///         for a URL refused, a host unknown or not reached, no answer within 1 s, or no
    ///         memory for the answer (for the connection: std::bad_alloc). A server that closes at
    ///         once has answered.
    static bool getFileHttp(const std::string& url, const std::string& fileName);

private:
    static unsigned long getHostAddress(const std::string& host);

    static std::map<std::string, unsigned long> mHosts;  // found by getFileHttp, none of them 0
};

}  // namespace Orlek::Network
