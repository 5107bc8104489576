// A TCP connection to a sender of messages that comes and goes.
#pragma once

#include <Orlek/Network.h>

#include <future>
#include <optional>
#include <vector>

#include "FeedMessage.h"
#include "FeedUrl.h"

namespace MovingMap {

/// Connects by itself, again and again, on a thread of its own, so that no call waits. A sender
/// that vanishes without a word, switched off or unplugged, is given up after eleven seconds.
class TcpLink {
public:
    /// Throws std::runtime_error when the host has no address. It may wait for name servers, which
    /// are asked this once.
    explicit TcpLink(const FeedUrl& url);
    /// Waits for a connection attempt in flight, half a second at most.
    ~TcpLink();

    TcpLink(const TcpLink&) = delete;
    TcpLink& operator=(const TcpLink&) = delete;

    /// Begins or ends a connection attempt where one is due.
    void tend(double nowS);

    /// Takes the next message.
    /// @param[out] message nothing when it is not valid
    /// @return false when none has come
    bool next(std::optional<FeedMessage>& message);

    bool connected() const { return mLink.connected(); }

private:
    void beginAttempt();
    void takeAttempt();

    unsigned long mAddress;
    int mPort;
    Orlek::Network::SocketTcp mLink;
    std::future<Orlek::Network::SocketTcp> mAttempt;
    double mNextAttemptS = 0.0;
    std::vector<std::byte> mPayload;
};

}  // namespace MovingMap
