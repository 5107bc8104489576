// Sockets on POSIX. Readiness is asked with poll: select cannot take descriptors above 1023.
#include "platform/Socket.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <limits>
#include <optional>

#include "platform/Report.h"
#include "platform/posix/Descriptors.h"

namespace Orlek::Detail {

namespace {

using SteadyClock = std::chrono::steady_clock;

std::optional<sockaddr_in> systemAddress(const Endpoint& endpoint) {
    if (endpoint.address > std::numeric_limits<std::uint32_t>::max() || endpoint.port < 0 ||
        endpoint.port > std::numeric_limits<std::uint16_t>::max()) {
        errno = EINVAL;
        return std::nullopt;
    }
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(static_cast<std::uint32_t>(endpoint.address));
    address.sin_port = htons(static_cast<std::uint16_t>(endpoint.port));
    return address;
}

const sockaddr* generic(const sockaddr_in& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

/// Whole milliseconds until `end`, rounded up so that a wait never ends early; one wait asks for at
/// most what poll takes.
int remainingMs(SteadyClock::time_point end) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(end - SteadyClock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

using Deadline = std::optional<SteadyClock::time_point>;

Deadline deadlineIn(std::optional<unsigned int> timeoutMs) {
    return timeoutMs ? Deadline(SteadyClock::now() + std::chrono::milliseconds(*timeoutMs))
                     : Deadline();
}

/// Waits for `events` or an error; without a limit when there is none. `again`, with ETIMEDOUT,
/// when the time has passed.
Outcome waitFor(int socket, short events, const Deadline& end) {
    pollfd waited = {socket, events, 0};
    for (;;) {
        const int ready = ::poll(&waited, 1, end ? remainingMs(*end) : -1);
        if (ready > 0 && (waited.revents & POLLNVAL) != 0) {
            errno = EBADF;
            return Outcome::failed;
        }
        if (ready > 0) {
            return Outcome::done;
        }
        if (ready < 0 && errno != EINTR) {
            return Outcome::failed;
        }
        if (end && SteadyClock::now() >= *end) {
            errno = ETIMEDOUT;
            return Outcome::again;
        }
    }
}

template <typename Value>
bool setOption(int socket, int level, int option, const Value& value) {
    return ::setsockopt(socket, level, option, &value, sizeof(value)) == 0;
}

sockaddr_in nameOf(int socket, int (*ask)(int, sockaddr*, socklen_t*)) {
    sockaddr_in name = {};
    socklen_t size = sizeof(name);
    ask(socket, reinterpret_cast<sockaddr*>(&name), &size);
    return name;
}

/// Refuses a socket that has become its own peer: to a port of this machine which nobody has, the
/// system may connect it from that same port (for streams a simultaneous open, RFC 9293 3.5).
bool hasOtherPeer(int socket) {
    const sockaddr_in own = nameOf(socket, ::getsockname);
    const sockaddr_in peer = nameOf(socket, ::getpeername);
    if (own.sin_port != peer.sin_port || own.sin_addr.s_addr != peer.sin_addr.s_addr) {
        return true;
    }
    // Closed without a farewell, or the port would be taken for a minute more.
    setOption(socket, SOL_SOCKET, SO_LINGER, linger{1, 0});
    errno = ECONNREFUSED;
    return false;
}

/// The outcome of a connect that has been started, which a wait for writability tells of.
Outcome finishConnect(int socket, std::optional<unsigned int> timeoutMs) {
    const Outcome outcome = waitFor(socket, POLLOUT, deadlineIn(timeoutMs));
    if (outcome != Outcome::done) {
        return outcome;
    }
    int error = 0;
    socklen_t size = sizeof(error);
    if (::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &size) < 0) {
        reportSystemError("getsockopt");
        return Outcome::failed;
    }
    errno = error;
    return error == 0 && hasOtherPeer(socket) ? Outcome::done : Outcome::failed;
}

Transfer sorted(ssize_t result) {
    if (result >= 0) {
        return {Outcome::done, static_cast<std::size_t>(result)};
    }
    return {errno == EAGAIN || errno == EWOULDBLOCK ? Outcome::again : Outcome::failed, 0};
}

}  // namespace

int openSocket(SocketKind kind) {
    const int type = kind == SocketKind::stream ? SOCK_STREAM : SOCK_DGRAM;
    return aboveStandardStreams(::socket(AF_INET, type | SOCK_CLOEXEC, 0));
}

void closeSocket(int socket) {
    if (socket >= 0) {
        const int error = errno;
        // Not repeated after EINTR: the descriptor is gone by then.
        ::close(socket);
        errno = error;
    }
}

bool connectSocket(int socket, const Endpoint& peer) {
    const auto address = systemAddress(peer);
    if (!address) {
        return false;
    }
    if (::connect(socket, generic(*address), sizeof(*address)) == 0) {
        return hasOtherPeer(socket);
    }
    // After a signal the connect goes on by itself.
    return errno == EINTR && finishConnect(socket, std::nullopt) == Outcome::done;
}

Outcome connectSocket(int socket, const Endpoint& peer, unsigned int timeoutMs) {
    const auto address = systemAddress(peer);
    if (!address || !setBlocking(socket, false)) {
        return Outcome::failed;
    }
    if (::connect(socket, generic(*address), sizeof(*address)) < 0 && errno != EINPROGRESS &&
        errno != EINTR) {
        return Outcome::failed;
    }
    const Outcome outcome = finishConnect(socket, timeoutMs);
    if (outcome == Outcome::done && !setBlocking(socket, true)) {
        return Outcome::failed;
    }
    return outcome;
}

bool bindSocket(int socket, const Endpoint& local) {
    const auto address = systemAddress(local);
    return address && ::bind(socket, generic(*address), sizeof(*address)) == 0;
}

bool listenSocket(int socket, int backlog) {
    return ::listen(socket, backlog) == 0;
}

int acceptSocket(int listener, Endpoint& peer, std::optional<unsigned int> timeoutMs) {
    const Deadline end = deadlineIn(timeoutMs);
    for (;;) {
        sockaddr_in address = {};
        socklen_t size = sizeof(address);
        const int accepted = aboveStandardStreams(
            ::accept4(listener, reinterpret_cast<sockaddr*>(&address), &size, SOCK_CLOEXEC));
        if (accepted >= 0) {
            peer = {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
            return accepted;
        }
        if (errno == EINTR || errno == ECONNABORTED) {
            continue;
        }
        if (errno != EAGAIN && errno != EWOULDBLOCK) {
            return noSocket;
        }
        if (waitFor(listener, POLLIN, end) != Outcome::done) {
            return noSocket;
        }
    }
}

Outcome waitReadable(int socket, unsigned int timeoutMs) {
    return waitFor(socket, POLLIN, deadlineIn(timeoutMs));
}

Transfer sendBytes(int socket, std::span<const std::byte> head, std::span<const std::byte> tail,
                   Patience patience) {
    const int flags = MSG_NOSIGNAL | (patience == Patience::none ? MSG_DONTWAIT : 0);
    const auto send = [&](std::span<const std::byte> bytes) {
        return sorted(
            unlessInterrupted([&] { return ::send(socket, bytes.data(), bytes.size(), flags); }));
    };
    if (tail.empty()) {
        return send(head);
    }
    // Copying this little costs less than what the system spends on a list of parts.
    std::array<std::byte, 2048> together;
    if (head.size() <= together.size() && tail.size() <= together.size() - head.size()) {
        std::ranges::copy(tail, std::ranges::copy(head, together.begin()).out);
        return send(std::span(together).first(head.size() + tail.size()));
    }
    // The system does not write through these pointers; its interface has no const.
    iovec parts[] = {{const_cast<std::byte*>(head.data()), head.size()},
                     {const_cast<std::byte*>(tail.data()), tail.size()}};
    msghdr message = {};
    message.msg_iov = parts;
    message.msg_iovlen = 2;
    return sorted(unlessInterrupted([&] { return ::sendmsg(socket, &message, flags); }));
}

Transfer receiveBytes(int socket, std::span<std::byte> room, Patience patience) {
    const int flags = patience == Patience::none ? MSG_DONTWAIT : 0;
    return sorted(
        unlessInterrupted([&] { return ::recv(socket, room.data(), room.size(), flags); }));
}

bool setBlocking(int socket, bool blocking) {
    const int flags = ::fcntl(socket, F_GETFL);
    return flags >= 0 &&
           ::fcntl(socket, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK) == 0;
}

bool setNoDelay(int socket) {
    return setOption(socket, IPPROTO_TCP, TCP_NODELAY, 1);
}

bool setReuseAddress(int socket) {
    return setOption(socket, SOL_SOCKET, SO_REUSEADDR, 1);
}

bool setBroadcast(int socket) {
    return setOption(socket, SOL_SOCKET, SO_BROADCAST, 1);
}

bool setBufferSize(int socket, SocketBuffer buffer, int bytes) {
    return setOption(socket, SOL_SOCKET, buffer == SocketBuffer::send ? SO_SNDBUF : SO_RCVBUF,
                     bytes);
}

bool setSendTimeout(int socket, unsigned int timeoutUs) {
    const timeval limit = {timeoutUs / 1000000, timeoutUs % 1000000};
    return setOption(socket, SOL_SOCKET, SO_SNDTIMEO, limit);
}

}  // namespace Orlek::Detail
