// Datagrams to one destination or from one local port.
#pragma once

#include <Orlek/Export.h>

#include <memory>

/// @cond
namespace Orlek::Detail {
class DatagramSocket;
}
/// @endcond

namespace Orlek::Network {

/// An IPv4 datagram socket (RFC 768) for one direction: it sends to one destination, which may be a
/// broadcast address, or receives on a local port. All addresses are in host byte order: 0x7F000001
/// is 127.0.0.1.
///
/// One thread at a time may use an object and its copies. Copies share the socket: it is closed
/// once, by closeConnection() of any of them or when the last one goes. A copy whose socket another
/// one closed still says connected(), and its read() and write() fail. Opening an object that is
/// open lets go of the earlier socket. The socket is not inherited by programs that the process
/// starts.
///
/// @code
/// Orlek::Network::SocketUdp sender;
/// if (sender.openSendSocket(Orlek::Network::SocketUdp::getBroadcastAddress(), 5000, 0)) {
///     sender.write(&position, sizeof(position));  // every receiver of port 5000 on this wire
/// }
/// @endcode
class ORLEK_EXPORT SocketUdp {
public:
    /// Makes an object that is not open.
    SocketUdp() = default;
    /// Shares the socket of @p other.
    SocketUdp(const SocketUdp& other) = default;
    /// Lets go of the own socket and shares that of @p other.
    SocketUdp& operator=(const SocketUdp& other) = default;
    /// Closes the socket unless a copy still shares it.
    virtual ~SocketUdp();

    /// Opens the object for sending, also to broadcast addresses. Nothing is sent yet, and whether
    /// anybody listens is not known. The system chooses the local address now: when that changes,
    /// as in another wireless network, write() fails until the object is opened anew.
    /// @param address the destination.
    /// @param port its port, 0 to 65535.
    /// @return whether it is open now. A failure prints "Opening send socket", "set send broadcast"
    ///         or "connect send socket" with the reason of the system on the standard error stream
    ///         and leaves the object as it was.
    bool openSendSocket(unsigned long address, int port, int /*unused*/);

    /// Opens the object for receiving. Several receivers may open one port; a broadcast reaches all
    /// of them, any other datagram one.
    /// @param address the local address to listen on, 0 for all of them; broadcasts come only to
    ///        0, or to a broadcast address.
    /// @param port the local port, 0 to 65535; 0 takes any free one.
    /// @param blocking 0: read() returns at once; otherwise it waits.
    /// @return whether it is open now. A failure prints "Opening recv socket", "setsockopt" or
    ///         "bind recv socket" with the reason of the system on the standard error stream and
    ///         leaves the object as it was.
    bool openReceiveSocket(unsigned long address, int port, int blocking);

    /// Sends one datagram to the destination.
    ///
    /// That an earlier datagram found nobody listening, or was turned away on its way, does not
    /// keep this one from being sent. The call waits while the system's send buffer is full, until
    /// earlier datagrams are on the wire: milliseconds, whoever listens.
    /// @param data the bytes; the object keeps none of them.
    /// @param size their number, 0 to 65507, the most that IPv4 carries.
    /// @return the number of bytes sent; -1 when not open. -1, with "write" and the reason of the
    ///         system on the standard error stream, when the system refuses.
    int write(const void* data, unsigned int size);

    /// The same.
    /// @param port not used: the datagram goes to the port that was opened.
    /// @param data the bytes.
    /// @param size their number.
    /// @return as of the other form.
    int write(int port, const void* data, unsigned int size);

    /// Receives one datagram. On a socket that waits it does so without end when none comes; end
    /// such a wait with a datagram of one's own.
    /// @param buffer room for @p size bytes. What a longer datagram has beyond is lost.
    /// @param size the size of the buffer in bytes.
    /// @return the number of bytes received, which is 0 for an empty datagram; -1 when not open,
    ///         when receiving fails, or when nothing is there on a socket that does not wait.
    int read(void* buffer, unsigned int size);

    /// Closes the socket, for all copies. Nothing happens when it is not open.
    void closeConnection();

    /// @return whether the object was opened and not closed.
    bool connected() const { return mConnected; }

    /// Looks the name of this host up, which may wait for name servers. Any thread may call it.
    /// @return the first address of this host; 0 when it has none.
    static unsigned long getHostAddress();

    /// Any thread may call it.
    /// @return the directed broadcast address of the first network interface whose address is not
    ///         127.0.0.1: 192.168.1.255 for 192.168.1.17 with netmask 255.255.255.0. 0x7F000001
    ///         when there is no such interface, 0 when the system does not tell.
    static unsigned long getBroadcastAddress();

private:
    std::shared_ptr<Detail::DatagramSocket> mSocket;
    unsigned int mPort = 0;
    unsigned int mMode = 0;
    bool mConnected = false;
};

}  // namespace Orlek::Network
