#include <Orlek/Network/SocketTcpServer.h>

#include <cerrno>
#include <cstdint>
#include <optional>

#include "network/DottedAddress.h"
#include "platform/Report.h"
#include "platform/Socket.h"

namespace Orlek::Network {

using namespace Detail;

namespace {

constexpr int backlog = 5;
constexpr unsigned int acceptTimeoutMs = 1;
constexpr unsigned int sendTimeoutUs = 10000;

void enlargeBuffers(int socket) {
    setBufferSize(socket, SocketBuffer::receive, SocketTcpServer::SKT_BUF_SIZE);
    setBufferSize(socket, SocketBuffer::send, SocketTcpServer::SKT_BUF_SIZE);
}

/// The name of the step that failed, null when the socket listens.
const char* startListening(int socket, int port) {
    if (!setReuseAddress(socket)) {
        return "setsockopt";
    }
    if (!bindSocket(socket, {0, port})) {
        return "bind";
    }
    enlargeBuffers(socket);
    setBlocking(socket, false);  // whoever waits for a peer may find that another was faster
    return listenSocket(socket, backlog) ? nullptr : "listen";
}

/// The first octet of an address in the lowest byte.
unsigned long firstOctetLowest(unsigned long address) {
    return ((address & 0xFF) << 24) | ((address & 0xFF00) << 8) | ((address >> 8) & 0xFF00) |
           ((address >> 24) & 0xFF);
}

bool accept(int listener, std::optional<unsigned int> timeoutMs, SocketTcp& client) {
    Endpoint peer;
    NewSocket socket(acceptSocket(listener, peer, timeoutMs));
    if (!socket.isOpen()) {
        if (!timeoutMs || errno != ETIMEDOUT) {
            reportSystemError("accept");
        }
        return false;
    }
    client.setDescriptor(static_cast<std::uint64_t>(socket.get()));
    const int accepted = socket.handedOn();
    client.setName(dottedAddress(peer.address));
    client.setAddress(firstOctetLowest(peer.address));
    enlargeBuffers(accepted);
    if (!setSendTimeout(accepted, sendTimeoutUs)) {
        reportSystemError("setsockopt");
    }
    return true;
}

}  // namespace

SocketTcpServer::SocketTcpServer() : mSocket(std::make_shared<SharedSocket>()) {}
SocketTcpServer::SocketTcpServer(const SocketTcpServer& other) = default;
SocketTcpServer& SocketTcpServer::operator=(const SocketTcpServer& other) = default;
SocketTcpServer::~SocketTcpServer() = default;

bool SocketTcpServer::init(int port) {
    NewSocket socket(openSocket(SocketKind::stream));
    const char* failed = socket.isOpen() ? startListening(socket.get(), port) : "socket";
    if (failed != nullptr) {
        reportSystemError(failed);
        return false;
    }
    setNoDelay(socket.get());
    mSocket = socket.shared<SharedSocket>();
    return true;
}

bool SocketTcpServer::acceptConnection(SocketTcp& client) {
    return accept(mSocket->get(), {}, client);
}

bool SocketTcpServer::acceptConnectionNonBlock(SocketTcp& client) {
    return mSocket->isOpen() && accept(mSocket->get(), acceptTimeoutMs, client);
}

bool SocketTcpServer::closeConnection() {
    mSocket->close();
    return true;
}

}  // namespace Orlek::Network
