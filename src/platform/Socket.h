// IPv4 sockets: one verb a system call, which sorts what the call can answer once for all callers.
//
// Verbs work on plain descriptors, start over when a signal cuts a call short, never raise SIGPIPE,
// and leave the reason of a failure in errno. Closing goes through SharedSocket.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>

namespace Orlek::Detail {

enum class SocketKind { stream, datagram };

/// What came of a verb that may have to wait.
enum class Outcome {
    done,
    again,  ///< Not now: nothing waits, there is no room, or the time has passed.
    failed  ///< The reason is in errno.
};

/// What came of a transfer.
struct Transfer {
    Outcome outcome = Outcome::failed;
    std::size_t bytes = 0;  ///< When done. A stream's peer has closed when 0 bytes were received.
};

/// Whether a transfer may wait.
enum class Patience { none, wait };

/// An address in host byte order (0x7F000001 is 127.0.0.1, 0 every local address) and a port.
/// Values that do not fit 32 and 16 bits make the verbs fail with EINVAL.
struct Endpoint {
    unsigned long address = 0;
    int port = 0;
};

constexpr int noSocket = -1;

/// Room that the system keeps for bytes on their way.
enum class SocketBuffer { send, receive };

/// A new IPv4 socket that programs started by this one do not inherit; noSocket when that failed.
int openSocket(SocketKind kind);

/// Closes a descriptor; errno stays as it was. For sockets that no SharedSocket holds yet.
void closeSocket(int socket);

/// Waits until connected (a datagram socket: until the destination is stored). Connected to itself
/// is refused.
bool connectSocket(int socket, const Endpoint& peer);

/// Waits at most `timeoutMs`, then gives up: `again`, errno ETIMEDOUT. The socket may block
/// afterwards.
Outcome connectSocket(int socket, const Endpoint& peer, unsigned int timeoutMs);

bool bindSocket(int socket, const Endpoint& local);
bool listenSocket(int socket, int backlog);

/// Waits for a peer and takes it, for `timeoutMs` at most when there is such; peers that have gone
/// meanwhile are passed over. The listener does not block, or the limit does not hold where another
/// process takes the peer.
/// @return the socket of the peer, noSocket when that failed, with ETIMEDOUT when the time passed.
int acceptSocket(int listener, Endpoint& peer, std::optional<unsigned int> timeoutMs = {});

/// Waits at most `timeoutMs` for bytes, for a peer to accept, or for an error to collect.
Outcome waitReadable(int socket, unsigned int timeoutMs);

/// Sends `head`, then `tail`, as one datagram or as bytes of the stream, of which some may remain.
Transfer sendBytes(int socket, std::span<const std::byte> head, std::span<const std::byte> tail,
                   Patience patience);

/// Receives what is there, at most the size of `room`.
Transfer receiveBytes(int socket, std::span<std::byte> room, Patience patience);

bool setBlocking(int socket, bool blocking);
bool setNoDelay(int socket);
bool setReuseAddress(int socket);
bool setBroadcast(int socket);
bool setBufferSize(int socket, SocketBuffer buffer, int bytes);
bool setSendTimeout(int socket, unsigned int timeoutUs);

/// The descriptor that an object and its copies share. Whichever closes it, it is closed once, and
/// the others see that it is gone, so that none touches a descriptor that the system has given to
/// somebody else since. Destruction does not close.
class SharedSocket {
public:
    SharedSocket() = default;
    explicit SharedSocket(int socket) : mSocket(socket) {}
    SharedSocket(const SharedSocket&) = delete;
    SharedSocket& operator=(const SharedSocket&) = delete;

    /// The descriptor, noSocket when there is none or it has been closed.
    int get() const { return mSocket.load(std::memory_order_relaxed); }
    bool isOpen() const { return get() >= 0; }
    void close() { closeSocket(mSocket.exchange(noSocket)); }

private:
    std::atomic<int> mSocket = noSocket;
};

/// A socket on its way to whoever will close it; until it is handed on, it is closed with the
/// object, as when memory runs out.
class NewSocket {
public:
    explicit NewSocket(int socket) : mSocket(socket) {}
    NewSocket(const NewSocket&) = delete;
    NewSocket& operator=(const NewSocket&) = delete;
    ~NewSocket() { closeSocket(mSocket); }

    int get() const { return mSocket; }
    bool isOpen() const { return mSocket >= 0; }
    /// Leaves the socket to another owner.
    int handedOn() { return std::exchange(mSocket, noSocket); }

    /// Hands the socket on to a new object.
    template <typename Owner>
    std::shared_ptr<Owner> shared() {
        auto owner = std::make_shared<Owner>(mSocket);
        handedOn();
        return owner;
    }

private:
    int mSocket;
};

}  // namespace Orlek::Detail
