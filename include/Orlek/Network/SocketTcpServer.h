// Listens for TCP connections.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Network/SocketTcp.h>

#include <memory>

namespace Orlek::Network {

/// A listening socket. Copies share it; it is closed once, by whichever of them closes it first.
/// The destructor does not close: call closeConnection(). One thread at a time may use an object.
///
/// @code
/// Orlek::Network::SocketTcpServer server;
/// Orlek::Network::SocketTcp client;
/// if (server.init(5000) && server.acceptConnection(client)) {
///     serve(client);
/// }
/// @endcode
class ORLEK_EXPORT SocketTcpServer {
public:
    /// Size in bytes asked of the system for the send and receive buffer of each socket.
    static constexpr int SKT_BUF_SIZE = 1048576;

    /// Not listening.
    SocketTcpServer();
    /// Shares the socket of `other`.
    SocketTcpServer(const SocketTcpServer& other);
    /// Shares the socket of `other`; the one held so far is not closed.
    SocketTcpServer& operator=(const SocketTcpServer& other);
    /// Does not close.
    virtual ~SocketTcpServer();

    /// Listens on every local address. A failure prints the system's reason after the step that
    /// failed: "socket", "setsockopt", "bind" or "listen". A socket held so far is not closed.
    /// @param port 1 to 65535; 0 lets the system choose one, which this class does not tell.
    /// @return whether it listens.
    bool init(int port);

    /// Waits for a peer, without end when none comes. A failure prints the system's reason for
    /// "accept".
    /// @param[out] client the connection: descriptor, name and address are set; one that it held
    ///        before is not closed.
    /// @return whether a peer was accepted.
    bool acceptConnection(SocketTcp& client);

    /// As acceptConnection(), but gives up, without a message, after 1 ms when no peer comes.
    /// @param[out] client as above.
    /// @return whether a peer was accepted.
    bool acceptConnectionNonBlock(SocketTcp& client);

    /// Stops listening. @return true.
    bool closeConnection();

private:
    std::shared_ptr<Detail::SharedSocket> mSocket;
};

}  // namespace Orlek::Network
