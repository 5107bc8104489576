#include <Orlek/Network/SocketTcp.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include "network/DottedAddress.h"
#include "network/PackageFraming.h"
#include "network/SendQueue.h"
#include "platform/Report.h"
#include "platform/Socket.h"

namespace Orlek::Network {

using namespace Detail;

namespace {

constexpr std::size_t longestPackage = 1048576;
constexpr int noPackage = -1;
constexpr int noConnection = -2;

int openClient(unsigned long address, int port) {
    if (address == 0) {
        return noSocket;
    }
    const int socket = openSocket(SocketKind::stream);
    if (socket == noSocket) {
        reportSystemError("socket");
        report("SocketTcp::createTcpClientSocket failed 0x%x port %d\n",
               static_cast<unsigned int>(address), port);
        return noSocket;
    }
    setNoDelay(socket);
    return socket;
}

/// The receive that never waits comes first: it mostly tells all there is to know.
Transfer receiveWithin(int socket, std::span<std::byte> room, unsigned int timeoutMs) {
    const Transfer transfer = receiveBytes(socket, room, Patience::none);
    if (transfer.outcome != Outcome::again || timeoutMs == 0 ||
        waitReadable(socket, timeoutMs) != Outcome::done) {
        return transfer;
    }
    return receiveBytes(socket, room, Patience::none);
}

}  // namespace

SocketTcp::SocketTcp()
    : mSocket(std::make_shared<SharedSocket>()),
      mQueue(std::make_unique<SendQueue>()),
      mReceived(std::make_unique<PackageFraming>()) {}

SocketTcp::SocketTcp(const SocketTcp& other) : SocketTcp() {
    *this = other;
}

SocketTcp& SocketTcp::operator=(const SocketTcp& other) {
    if (this != &other) {
        mSocket = other.mSocket;
        mConnected = other.mConnected;
        mConnectionName = other.mConnectionName;
        mClientName = other.mClientName;
        mAddress = other.mAddress;
        *mQueue = SendQueue();
        mReceived->clear();
    }
    return *this;
}

SocketTcp::~SocketTcp() = default;

bool SocketTcp::createTcpClientSocket(unsigned long address, int port) {
    NewSocket socket(openClient(address, port));
    return socket.isOpen() && adopt(socket, address, connectSocket(socket.get(), {address, port}));
}

bool SocketTcp::createTcpClientSocketNonBlock(unsigned long address, int port,
                                              unsigned int timeoutMs) {
    NewSocket socket(openClient(address, port));
    return socket.isOpen() &&
           adopt(socket, address,
                 connectSocket(socket.get(), {address, port}, timeoutMs) == Outcome::done);
}

/// Takes a client's socket over when it is connected.
bool SocketTcp::adopt(NewSocket& socket, unsigned long address, bool connected) {
    if (connected) {
        setDescriptor(static_cast<std::uint64_t>(socket.get()));
        socket.handedOn();
        mConnectionName = dottedAddress(address);
    } else {
        mConnected = false;
    }
    return connected;
}

int SocketTcp::read(void* buffer, unsigned int size, unsigned int timeoutMs) {
    if (!mSocket->isOpen()) {
        return 0;
    }
    // The count is an int.
    const std::size_t room = std::min<std::size_t>(size, std::numeric_limits<int>::max());
    const Transfer transfer =
        receiveWithin(mSocket->get(), {static_cast<std::byte*>(buffer), room}, timeoutMs);
    if (transfer.outcome == Outcome::again) {
        return 0;
    }
    if (transfer.bytes > 0) {
        return static_cast<int>(transfer.bytes);
    }
    if (transfer.outcome == Outcome::done) {
        errno = 0;  // The peer has closed, which is no error of the system.
    }
    closeConnection();
    return -1;
}

/// The result of readPackage() when the buffered bytes decide it.
std::optional<int> SocketTcp::takePackage(void* payload, MsgHeader& header) {
    const PackageFraming::Found found = mReceived->next();
    switch (found.state) {
        case PackageFraming::State::incomplete:
            return std::nullopt;
        case PackageFraming::State::wrongVersion:
            report("Wrong KOVA version data received --> 0x%x, should be 0x%x\n",
                   static_cast<unsigned int>(found.header.version),
                   static_cast<unsigned int>(PackageFraming::version));
            return std::nullopt;
        case PackageFraming::State::tooLong:
            errno = EMSGSIZE;
            reportSystemError("read");
            closeConnection();
            return noConnection;
        case PackageFraming::State::package:
            break;
    }
    if (!found.payload.empty()) {
        std::memcpy(payload, found.payload.data(), found.payload.size());
    }
    const std::int16_t reserved = header.reserved;
    header = found.header;
    header.reserved = reserved;
    return static_cast<int>(header.id);
}

int SocketTcp::readPackage(void* payload, MsgHeader& header) {
    if (!connected()) {
        return noConnection;
    }
    if (const auto buffered = takePackage(payload, header)) {
        return *buffered;
    }
    const std::span<std::byte> room = mReceived->room();
    const int count = read(room.data(), static_cast<unsigned int>(room.size()), 0);
    if (count < 0) {
        reportSystemError("read");
        return noConnection;
    }
    mReceived->added(static_cast<std::size_t>(count));
    return count == 0 ? noPackage : takePackage(payload, header).value_or(noPackage);
}

int SocketTcp::writePackage(const void* payload, const MsgHeader& header, unsigned int) {
    if (!connected()) {
        return 0;
    }
    const std::size_t size = sizeof(MsgHeader) + header.length;
    if (size > longestPackage || (payload == nullptr && header.length > 0)) {
        report("SocketTcp::writePackage refused a package of %zu bytes\n", size);
        return 0;
    }
    const auto head = std::as_bytes(std::span(&header, 1));
    const std::span body(static_cast<const std::byte*>(payload), header.length);
    mQueue->flush(mSocket->get());
    Transfer transfer = {Outcome::again, 0};
    if (mQueue->empty()) {
        transfer = sendBytes(mSocket->get(), head, body, Patience::none);
    }
    if (transfer.outcome == Outcome::failed) {
        report("SocketTcp::writePackage ret %d\n", -1);
    } else if (transfer.bytes < size && !mQueue->push(head, body, transfer.bytes) &&
               transfer.bytes > 0) {
        // The receiver would take the next packages for the rest of this one.
        reportSystemError("write");
        closeConnection();
    }
    return 0;
}

void SocketTcp::closeConnection() {
    mSocket->close();
    mConnected = false;
}

bool SocketTcp::connected() const {
    return mConnected && mSocket->isOpen();
}

std::uint64_t SocketTcp::sd() const {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(mSocket->get()));
}

void SocketTcp::setDescriptor(std::uint64_t sd) {
    if (sd != this->sd()) {
        const bool fits = sd <= static_cast<std::uint64_t>(std::numeric_limits<int>::max());
        mSocket = std::make_shared<SharedSocket>(fits ? static_cast<int>(sd) : noSocket);
        mQueue->rewind();
    }
    mConnected = true;
}

}  // namespace Orlek::Network
