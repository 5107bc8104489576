// A TCP connection that carries packages.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Network/MsgHeader.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Orlek::Detail {
class NewSocket;
class PackageFraming;
class SendQueue;
class SharedSocket;
}  // namespace Orlek::Detail

namespace Orlek::Network {

/// An IPv4 TCP connection that exchanges packages: a MsgHeader, then the payload.
///
/// readPackage() and writePackage() never wait, so both may be called in every frame: incoming
/// bytes are collected in a buffer of 1 MiB, and what cannot be sent at once is queued. No call
/// raises SIGPIPE.
///
/// The queue keeps the newest 200 packages that wait; beyond that the oldest is lost without a
/// message. A package of which a part has been sent is never among those: its rest goes out first,
/// so that the receiver always finds whole packages, some of them missing, in their order. The
/// queue and the received bytes stay over closeConnection() and a new connection, on which a
/// package sent in part starts over; a package received in part would be completed with bytes of
/// the new peer. To start afresh, assign a new object: `link = SocketTcp();`.
///
/// A peer that is gone without having closed, switched off or unplugged, is noticed by a side that
/// writes, once the system gives up after a quarter of an hour or so, and never by one that only
/// reads: let both sides write now and then, or set SO_KEEPALIVE on sd().
///
/// Copies share the descriptor, not the queue and the received bytes: let one of them read and one
/// write. The descriptor is closed once, by whichever of them closes it first, and the others are
/// not connected any more. The destructor does not close: call closeConnection().
/// Neither does connecting an object that is connected already.
///
/// One thread at a time may use an object. Two copies may be used by two threads as long as no
/// third opens files or sockets: when one of them finds the connection closed, a call of the other
/// that is under way may reach what was opened under the same number.
///
/// @code
/// Orlek::Network::SocketTcp link;
/// if (link.createTcpClientSocketNonBlock(0x7F000001, 5000, 100)) {
///     Orlek::Network::MsgHeader header;
///     header.id = 7;
///     header.length = sizeof(position);
///     link.writePackage(&position, header, sizeof(position));
/// }
/// @endcode
class ORLEK_EXPORT SocketTcp {
public:
    /// Not connected, names empty, address 0.
    SocketTcp();

    /// Shares the connection of `other` and takes its names and address; what `other` has received
    /// and not handed out, and what waits in its queue, stays with `other`, and is lost with it. A
    /// `std::vector` copies when it grows: keep connections in a `std::list` or by pointer.
    SocketTcp(const SocketTcp& other);

    /// As the copy constructor; what this object had received or queued is dropped.
    SocketTcp& operator=(const SocketTcp& other);

    /// Does not close the connection.
    virtual ~SocketTcp();

    /// Connects, waiting as long as the system does: 127 to 135 s on Linux for an address that
    /// never answers (net.ipv4.tcp_syn_retries).
    ///
    /// When there is no socket left it prints the system's reason for "socket" and
    /// "SocketTcp::createTcpClientSocket failed 0x%x port %d\n"; other failures of the connection
    /// are silent and leave the reason in `errno`.
    /// @param address in host byte order, 0x7F000001 is 127.0.0.1; 0 gives false.
    /// @param port 1 to 65535.
    /// @return whether it is connected.
    bool createTcpClientSocket(unsigned long address, int port);

    /// As createTcpClientSocket(), with a time limit, behind which it returns within milliseconds.
    /// @param address as above.
    /// @param port as above.
    /// @param timeoutMs longest wait in milliseconds.
    /// @return whether it is connected.
    bool createTcpClientSocketNonBlock(unsigned long address, int port, unsigned int timeoutMs);

    /// Receives bytes as they come, not packages. Do not mix with readPackage().
    /// @param[out] buffer room for `size` bytes.
    /// @param size in bytes; 0 with bytes waiting counts as closed.
    /// @param timeoutMs longest wait in milliseconds.
    /// @return the number of bytes, those of an earlier connection also after a failed attempt to
    ///         make a new one; 0 when nothing came in time or there is no connection; -1 when
    ///         the peer has closed or the receive failed, and then the connection is closed.
    int read(void* buffer, unsigned int size, unsigned int timeoutMs);

    /// Hands out one package. Never waits; asks the system only when no whole package is buffered.
    ///
    /// A version other than 0x1203 prints "Wrong KOVA version data received --> 0x%x, should be
    /// 0x%x\n" and drops all bytes buffered. A length above 1,048,551 closes the connection. When
    /// the connection ends, the system's reason for "read" is printed.
    /// @param[out] payload room for the largest payload that may come (1,048,551 bytes at most).
    /// @param[out] header of the package; its reserved bytes stay as they were.
    /// @return the id of the package; -1 when none is complete; -2 when there is no connection, or
    ///         it ended now. Ids of 0xFFFFFFFF and 0xFFFFFFFE cannot be told from these.
    int readPackage(void* payload, MsgHeader& header);

    /// Sends a package, or queues it. Never waits. Without a connection nothing happens: the
    /// package is not kept for a later one.
    ///
    /// Prints "SocketTcp::writePackage ret %d\n" when the send failed; the package is lost then. It
    /// stays connected: that the peer has gone is for readPackage() to find, so call both. A
    /// package of more than 1,048,576 bytes, header included, is refused with a printed line
    /// (readPackage() takes one byte less). Without memory for the queue the package is lost; when
    /// a part of it is out already the stream is beyond repair: the system's reason for "write" is
    /// printed and the connection is closed.
    /// @param payload `header.length` bytes, which are copied; may be null when that is 0.
    /// @param header sent as it stands.
    /// @param size not used.
    /// @return 0.
    int writePackage(const void* payload, const MsgHeader& header, unsigned int size);

    /// Closes the connection, of all copies too. Nothing happens when it is closed.
    void closeConnection();

    /// @return whether there is a connection, as far as the calls so far could tell.
    bool connected() const;
    /// @return the peer's IPv4 address with its first octet in the lowest byte, as a server
    ///         accepted it; 0 for a client.
    unsigned long address() const { return mAddress; }
    /// @return the peer's address as text, "127.0.0.1".
    const std::string& connectionName() const { return mConnectionName; }
    /// @return the descriptor; all bits set when there is none.
    std::uint64_t sd() const;
    /// Takes a connected socket over.
    /// @param sd the descriptor, which no other object may hold unless it is a copy of this one.
    void setDescriptor(std::uint64_t sd);
    /// @param name see connectionName().
    void setName(const std::string& name) { mConnectionName = name; }
    /// @param name free text, which the library never reads.
    void setClientName(const std::string& name) { mClientName = name; }
    /// @param address see address().
    void setAddress(unsigned long address) { mAddress = address; }

private:
    bool adopt(Detail::NewSocket& socket, unsigned long address, bool connected);
    std::optional<int> takePackage(void* payload, MsgHeader& header);

    std::shared_ptr<Detail::SharedSocket> mSocket;
    bool mConnected = false;
    std::string mConnectionName;
    std::string mClientName;
    unsigned long mAddress = 0;
    std::unique_ptr<Detail::SendQueue> mQueue;
    std::unique_ptr<Detail::PackageFraming> mReceived;
};

}  // namespace Orlek::Network
