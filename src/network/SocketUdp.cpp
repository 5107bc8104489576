#include <Orlek/Network/SocketUdp.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/Interfaces.h"
#include "platform/Report.h"
#include "platform/Socket.h"

namespace Orlek::Detail {

/// The descriptor of one object and its copies, closed with the last of them.
class DatagramSocket : public SharedSocket {
public:
    using SharedSocket::SharedSocket;
    DatagramSocket(const DatagramSocket&) = delete;
    DatagramSocket& operator=(const DatagramSocket&) = delete;
    ~DatagramSocket() { close(); }
};

}  // namespace Orlek::Detail

namespace Orlek::Network {

namespace {

constexpr unsigned int modeClosed = 0;
constexpr unsigned int modeReceive = 1;
constexpr unsigned int modeSend = 2;

constexpr unsigned long loopback = 0x7F000001;

using Socket = std::shared_ptr<Detail::DatagramSocket>;

bool failed(const char* step) {
    Detail::reportSystemError(step);
    return false;
}

Socket openDatagramSocket() {
    return Detail::NewSocket(Detail::openSocket(Detail::SocketKind::datagram))
        .shared<Detail::DatagramSocket>();
}

int result(const Detail::Transfer& transfer) {
    return transfer.outcome == Detail::Outcome::done ? static_cast<int>(transfer.bytes) : -1;
}

}  // namespace

SocketUdp::~SocketUdp() = default;

bool SocketUdp::openSendSocket(unsigned long address, int port, int /*unused*/) {
    Socket socket = openDatagramSocket();
    if (!socket->isOpen()) {
        return failed("Opening send socket");
    }
    if (!Detail::setBroadcast(socket->get())) {
        return failed("set send broadcast");
    }
    if (!Detail::connectSocket(socket->get(), {address, port})) {
        return failed("connect send socket");
    }
    mSocket = std::move(socket);
    mPort = static_cast<unsigned int>(port);
    mMode = modeSend;
    mConnected = true;
    return true;
}

bool SocketUdp::openReceiveSocket(unsigned long address, int port, int blocking) {
    Socket socket = openDatagramSocket();
    if (!socket->isOpen()) {
        return failed("Opening recv socket");
    }
    // A socket that waits although it must not would stop the caller's frame.
    if (blocking == 0 && !Detail::setBlocking(socket->get(), false)) {
        return failed("Opening recv socket");
    }
    if (!Detail::setReuseAddress(socket->get())) {
        return failed("setsockopt");
    }
    if (!Detail::bindSocket(socket->get(), {address, port})) {
        return failed("bind recv socket");
    }
    mSocket = std::move(socket);
    mMode = modeReceive;
    mConnected = true;
    return true;
}

int SocketUdp::write(const void* data, unsigned int size) {
    if (!mConnected) {
        return -1;
    }
    const std::span bytes(static_cast<const std::byte*>(data), size);
    Detail::Transfer sent = Detail::sendBytes(mSocket->get(), bytes, {}, Detail::Patience::wait);
    // What became of an earlier datagram, refused by its receiver or a firewall, is told here,
    // once, and this one has not been sent.
    if (sent.outcome == Detail::Outcome::failed) {
        sent = Detail::sendBytes(mSocket->get(), bytes, {}, Detail::Patience::wait);
    }
    if (sent.outcome != Detail::Outcome::done) {
        Detail::reportSystemError("write");
    }
    return result(sent);
}

int SocketUdp::write(int /*port*/, const void* data, unsigned int size) {
    return write(data, size);
}

int SocketUdp::read(void* buffer, unsigned int size) {
    if (!mConnected) {
        return -1;
    }
    return result(Detail::receiveBytes(mSocket->get(), {static_cast<std::byte*>(buffer), size},
                                       Detail::Patience::wait));
}

void SocketUdp::closeConnection() {
    if (mSocket) {
        mSocket->close();
    }
    mMode = modeClosed;
    mConnected = false;
}

unsigned long SocketUdp::getHostAddress() {
    const std::string name = Detail::hostName();
    const auto addresses =
        name.empty() ? std::vector<std::uint32_t>() : Detail::resolveName(name).addresses;
    return addresses.empty() ? 0 : addresses.front();
}

unsigned long SocketUdp::getBroadcastAddress() {
    std::vector<Detail::InterfaceAddress> interfaces;
    if (!Detail::listInterfaces(interfaces)) {
        return 0;
    }
    for (const Detail::InterfaceAddress& interface : interfaces) {
        if (interface.address != loopback) {
            return interface.broadcast();
        }
    }
    return loopback;
}

}  // namespace Orlek::Network
