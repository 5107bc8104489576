// Messages to all that listen.
#pragma once

#include <Orlek/Network.h>

#include <list>

#include "FeedMessage.h"
#include "Options.h"

namespace Traffic {

/// A TCP server for any number of maps, and datagrams to one address. Sending never waits: what a
/// map does not take is queued for it alone, its newest 200 messages.
class Sender {
public:
    /// Throws std::runtime_error when a port cannot be opened.
    explicit Sender(const Options& options);
    ~Sender();

    Sender(const Sender&) = delete;
    Sender& operator=(const Sender&) = delete;

    /// Lets new maps in and those that left go.
    void serve();

    /// Sends a message to every map.
    void send(const MovingMap::FeedMessage& message);

private:
    void sendDatagram(const MovingMap::FeedMessage& message);

    Orlek::Network::SocketTcpServer mServer;
    std::list<Orlek::Network::SocketTcp> mMaps;
    Orlek::Network::SocketUdp mDatagrams;
};

}  // namespace Traffic
