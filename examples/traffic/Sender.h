// Messages to all that listen.
#pragma once

#include <Orlek/Network.h>

#include <chrono>
#include <list>

#include "FeedMessage.h"
#include "Options.h"

namespace Traffic {

/// A TCP server for any number of maps, and datagrams to one address. Sending never waits: what a
/// map does not take is queued for it alone, its newest 200 messages. Where datagrams cannot be
/// sent, as after a change of this machine's address, their socket is opened anew, once a second at
/// most.
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
    using Clock = std::chrono::steady_clock;

    bool openDatagrams();
    void sendDatagram(const MovingMap::FeedMessage& message);

    Options mOptions;
    Orlek::Network::SocketTcpServer mServer;
    std::list<Orlek::Network::SocketTcp> mMaps;
    Orlek::Network::SocketUdp mDatagrams;
    Clock::time_point mNextOpening;
};

}  // namespace Traffic
