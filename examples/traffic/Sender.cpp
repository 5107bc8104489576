// A connection is read only to learn that its map has left.
#include "Sender.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

namespace Traffic {

namespace {

using namespace Orlek::Network;
using MovingMap::FeedMessage;

void say(const char* what, const SocketTcp& map) {
    std::printf("%s %s\n", map.connectionName().c_str(), what);
    std::fflush(stdout);
}

bool hasLeft(SocketTcp& map) {
    std::array<char, 4096> unread;
    if (map.connected() && map.read(unread.data(), unread.size(), 0) >= 0) {
        return false;
    }
    map.closeConnection();
    say("left", map);
    return true;
}

}  // namespace

Sender::Sender(const Options& options) : mOptions(options) {
    if (options.tcpPort != 0 && !mServer.init(options.tcpPort)) {
        throw std::runtime_error("cannot listen on TCP port " + std::to_string(options.tcpPort));
    }
    if (options.udpPort != 0 && !openDatagrams()) {
        mServer.closeConnection();
        throw std::runtime_error("cannot send to UDP port " + std::to_string(options.udpPort));
    }
}

Sender::~Sender() {
    for (SocketTcp& map : mMaps) {
        map.closeConnection();
    }
    mServer.closeConnection();
}

void Sender::serve() {
    mMaps.remove_if(hasLeft);
    SocketTcp map;
    while (mServer.acceptConnectionNonBlock(map)) {
        say("joined", map);
        mMaps.push_back(map);
        map = SocketTcp();
    }
}

bool Sender::openDatagrams() {
    mNextOpening = Clock::now() + std::chrono::seconds(1);
    return mDatagrams.openSendSocket(mOptions.udpTo, mOptions.udpPort, 0);
}

void Sender::sendDatagram(const FeedMessage& message) {
    if (!mDatagrams.connected() && (Clock::now() < mNextOpening || !openDatagrams())) {
        return;
    }
    const MsgHeader header = headerOf(message);
    const auto payload = payloadOf(message);
    std::array<std::byte, sizeof(MsgHeader) + sizeof(FeedMessage)> datagram;
    std::memcpy(datagram.data(), &header, sizeof header);
    std::memcpy(datagram.data() + sizeof header, payload.data(), payload.size());
    const auto size = static_cast<unsigned int>(sizeof header + payload.size());
    if (mDatagrams.write(datagram.data(), size) < 0) {
        mDatagrams.closeConnection();
    }
}

void Sender::send(const FeedMessage& message) {
    for (SocketTcp& map : mMaps) {
        const MsgHeader header = headerOf(message);
        map.writePackage(payloadOf(message).data(), header, header.length);
    }
    if (mOptions.udpPort != 0) {
        sendDatagram(message);
    }
}

}  // namespace Traffic
