// The other end of a connection: a plain socket that knows nothing of the library.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrlekTest {

constexpr unsigned long loopback = 0x7F000001;

class PlainPeer {
public:
    explicit PlainPeer(int socket = -1) : mSocket(socket) {}
    PlainPeer(PlainPeer&& other) noexcept : mSocket(std::exchange(other.mSocket, -1)) {}
    PlainPeer& operator=(PlainPeer&& other) noexcept {
        std::swap(mSocket, other.mSocket);
        return *this;
    }
    ~PlainPeer() { close(); }

    /// At any free port, or at `port`.
    static PlainPeer listening(int port = 0) {
        PlainPeer peer = opened([](auto... to) { return ::bind(to...); }, port);
        listen(peer.mSocket, 100);
        return peer;
    }

    static PlainPeer connectedTo(int port) {
        return opened([](auto... to) { return ::connect(to...); }, port);
    }

    PlainPeer accepted() const {
        return PlainPeer(accept4(mSocket, nullptr, nullptr, SOCK_CLOEXEC));
    }

    int port() const {
        sockaddr_in local = {};
        socklen_t size = sizeof(local);
        getsockname(mSocket, reinterpret_cast<sockaddr*>(&local), &size);
        return ntohs(local.sin_port);
    }

    void send(const std::string& bytes) const {
        if (::send(mSocket, bytes.data(), bytes.size(), MSG_NOSIGNAL) !=
            static_cast<ssize_t>(bytes.size())) {
            throw std::runtime_error("cannot send");
        }
    }

    /// What comes until nothing has come for `patienceMs`, at most `limit` bytes.
    std::string receive(std::size_t limit = std::string::npos, int patienceMs = 200) const {
        std::string all;
        std::array<char, 65536> piece{};
        pollfd waited = {mSocket, POLLIN, 0};
        while (all.size() < limit && poll(&waited, 1, patienceMs) > 0) {
            const ssize_t count =
                recv(mSocket, piece.data(), std::min(piece.size(), limit - all.size()), 0);
            if (count <= 0) {
                break;
            }
            all.append(piece.data(), static_cast<std::size_t>(count));
        }
        return all;
    }

    void reset() {
        const linger now = {1, 0};
        setsockopt(mSocket, SOL_SOCKET, SO_LINGER, &now, sizeof(now));
        close();
    }

    void close() {
        if (mSocket >= 0) {
            ::close(std::exchange(mSocket, -1));
        }
    }

    int descriptor() const { return mSocket; }

    /// Asks for buffers of `bytes` in the system; those of a listening socket go to what it
    /// accepts.
    static void setBuffers(int socket, int bytes) {
        setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &bytes, sizeof(bytes));
        setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &bytes, sizeof(bytes));
    }

private:
    // Called through a pointer, a function that the torture test replaces would have another type.
    template <typename Call>
    static PlainPeer opened(Call bindOrConnect, int port) {
        PlainPeer peer(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        if (bindOrConnect(peer.mSocket, reinterpret_cast<const sockaddr*>(&address),
                          socklen_t{sizeof(address)}) != 0) {
            throw std::runtime_error("cannot bind or connect");
        }
        return peer;
    }

    int mSocket;
};

/// A package by the table of bytes of the format.
inline std::string packageBytes(std::uint32_t id, const std::string& payload,
                                std::uint16_t version = 0x1203) {
    std::string bytes(24, '\0');
    const auto length = static_cast<std::uint32_t>(payload.size());
    std::memcpy(&bytes[0], "\x11\x22\x33\x44", 4);
    std::memcpy(&bytes[4], &version, 2);
    std::memcpy(&bytes[8], &id, 4);
    std::memcpy(&bytes[12], &length, 4);
    std::memcpy(&bytes[16], "\x01\0\0\0\x02\0\0\0", 8);
    return bytes + payload;
}

}  // namespace OrlekTest
