// The feeds of the soak: what a process of its own sends, and what must come of it.
#pragma once

#include <Orlek/Network/SocketTcpServer.h>

#include <atomic>
#include <chrono>
#include <cstdint>

#include "FeedMessage.h"

namespace OrlekTest {

/// What the sender has done, in memory that both processes see.
struct Sent {
    std::atomic<bool> stop = false;   ///< Set by the map.
    std::atomic<bool> ended = false;  ///< Nothing comes any more.
    std::atomic<std::uint32_t> tcpRounds = 0;
    std::atomic<std::uint32_t> udpRounds = 0;
    std::atomic<std::uint32_t> connections = 0;
};

/// Sends the own ship and its traffic 20 times a second to one map over TCP and UDP until it shall
/// stop. Begins when the map connects; closes the connection and the datagram socket after each
/// period, and waits for the map to find it again.
void sendFeeds(Orlek::Network::SocketTcpServer& server, int udpPort,
               std::chrono::steady_clock::duration period, Sent& sent);

/// Holds what comes on a feed against what was sent: rounds of an own ship, numbered from 1 in the
/// bytes that a map does not read, and of the targets 1 to 12 behind it.
class RoundOrder {
public:
    void take(const MovingMap::FeedMessage& message);

    /// How often something else came than what must come next.
    unsigned long faults() const { return mFaults; }

    /// Whether so many rounds have come, the last one to its end.
    bool complete(std::uint32_t rounds) const {
        return mRound == rounds && mTarget == targetsOfARound;
    }

private:
    static constexpr std::uint32_t targetsOfARound = 12;

    std::uint32_t mRound = 0;
    std::uint32_t mTarget = targetsOfARound;
    unsigned long mFaults = 0;
};

/// How many datagrams for a port the system had no room for since the port was opened.
unsigned long droppedDatagrams(int port);

}  // namespace OrlekTest
