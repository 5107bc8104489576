// Connections over loopback that carry the same packages: by bare calls and by the library. All of
// them have TCP_NODELAY and buffers of 1 MiB, and one thread is both ends. A link sends one package
// and receives one, whose header is inspected and whose payload is copied out.
#pragma once

#include <Orlek/Network/SocketTcp.h>
#include <netinet/tcp.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

#include "network/PlainPeer.h"

namespace OrlekBench {

using Orlek::Network::MsgHeader;
using OrlekTest::PlainPeer;

constexpr std::size_t receiveCapacity = 0xFFFFF;

inline void require(bool holds, const char* what) {
    if (!holds) {
        std::perror(what);
        std::exit(1);
    }
}

/// A package as it goes over the wire, built beforehand.
struct Package {
    explicit Package(std::uint32_t length) : bytes(sizeof(MsgHeader) + length, std::byte{0x5A}) {
        header.id = 7;
        header.length = length;
        std::memcpy(bytes.data(), &header, sizeof(header));
    }
    std::span<const std::byte> payload() const { return std::span(bytes).subspan(sizeof(header)); }

    MsgHeader header;
    std::vector<std::byte> bytes;
};

/// Where a received package goes.
struct Received {
    MsgHeader header;
    std::vector<std::byte> payload = std::vector<std::byte>(receiveCapacity);
};

struct Connection {
    explicit Connection(int bufferSize = 1 << 20) {
        const PlainPeer listener = PlainPeer::listening();
        sender = PlainPeer::connectedTo(listener.port());
        receiver = listener.accepted();
        for (const int socket : {sender.descriptor(), receiver.descriptor()}) {
            const int on = 1;
            setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
            setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &bufferSize, sizeof(bufferSize));
            setsockopt(socket, SOL_SOCKET, SO_RCVBUF, &bufferSize, sizeof(bufferSize));
        }
    }
    PlainPeer sender;
    PlainPeer receiver;
};

/// The least that a receiver can do: an offset that moves through a buffer.
class MovingOffset {
public:
    bool take(Received& received) {
        MsgHeader& header = received.header;
        if (mEnd - mBegin < sizeof(header)) {
            return false;
        }
        std::memcpy(&header, mBytes.data() + mBegin, sizeof(header));
        require(header.version == 0x1203, "version");
        if (mEnd - mBegin - sizeof(header) < header.length) {
            return false;
        }
        std::memcpy(received.payload.data(), mBytes.data() + mBegin + sizeof(header),
                    header.length);
        mBegin += sizeof(header) + header.length;
        return true;
    }

    /// Where the next bytes go: the whole buffer whenever nothing waits.
    std::span<std::byte> room() {
        if (mBegin == mEnd) {
            mBegin = mEnd = 0;
        }
        return std::span(mBytes).subspan(mEnd, receiveCapacity - mEnd);
    }
    void added(std::size_t count) { mEnd += count; }

private:
    std::vector<std::byte> mBytes = std::vector<std::byte>(receiveCapacity);
    std::size_t mBegin = 0;
    std::size_t mEnd = 0;
};

class BareLink {
public:
    explicit BareLink(int bufferSize = 1 << 20) : mConnection(bufferSize) {}

    void send(std::span<const std::byte> bytes) {
        require(::send(mConnection.sender.descriptor(), bytes.data(), bytes.size(),
                       MSG_NOSIGNAL | MSG_DONTWAIT) == std::ssize(bytes),
                "send");
    }
    void send(const Package& package) { send(package.bytes); }

    void receive(Received& received) {
        while (!mBuffer.take(received)) {
            const auto room = mBuffer.room();
            const ssize_t count =
                recv(mConnection.receiver.descriptor(), room.data(), room.size(), MSG_DONTWAIT);
            mBuffer.added(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
    }

private:
    Connection mConnection;
    MovingOffset mBuffer;
};

class OrlekLink {
public:
    explicit OrlekLink(int bufferSize = 1 << 20) : mConnection(bufferSize) {
        mSender.setDescriptor(static_cast<std::uint64_t>(mConnection.sender.descriptor()));
        mReceiver.setDescriptor(static_cast<std::uint64_t>(mConnection.receiver.descriptor()));
    }

    /// Bytes of packages, past the library.
    void send(std::span<const std::byte> bytes) {
        require(::send(mConnection.sender.descriptor(), bytes.data(), bytes.size(),
                       MSG_NOSIGNAL | MSG_DONTWAIT) == std::ssize(bytes),
                "send");
    }
    void send(const Package& package) {
        mSender.writePackage(package.payload().data(), package.header, package.header.length);
    }

    void receive(Received& received) {
        int id = -1;
        while (id == -1) {
            id = mReceiver.readPackage(received.payload.data(), received.header);
        }
        require(id == 7, "readPackage");
    }

private:
    Connection mConnection;
    Orlek::Network::SocketTcp mSender;
    Orlek::Network::SocketTcp mReceiver;
};

}  // namespace OrlekBench
