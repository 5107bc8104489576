// Rounds that are sent on a feed are numbered by it alone: over TCP only while there is a
// connection, so that over all connections no number may be missing.
#include "Feeds.h"

#include <unistd.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "RouteFile.h"
#include "traffic/AirTraffic.h"
#include "traffic/Sender.h"

namespace OrlekTest {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using MovingMap::FeedMessage;
using MovingMap::OwnShipMessage;
using MovingMap::TargetMessage;
using Orlek::Network::SocketTcp;

constexpr auto betweenRounds = 50ms;
constexpr double startS = 300.0;
constexpr double pace = 10.0;  // Flown time against the time of the clock.

void sendRound(SocketTcp& map, const std::vector<FeedMessage>& round) {
    for (const FeedMessage& message : round) {
        const auto header = headerOf(message);
        map.writePackage(payloadOf(message).data(), header, header.length);
    }
}

}  // namespace

void sendFeeds(Orlek::Network::SocketTcpServer& server, int udpPort, Clock::duration period,
               Sent& sent) {
    const Traffic::AirTraffic traffic(MovingMap::defaultRoute(), 110.0, 5500.0);
    Traffic::Options toTheMap;
    toTheMap.udpPort = udpPort;
    toTheMap.udpTo = 0x7F000001;
    SocketTcp map;
    std::optional<Traffic::Sender> datagrams;
    const Clock::time_point start = Clock::now();
    Clock::time_point renewal = start + period;
    const pid_t parent = getppid();
    for (Clock::time_point now = start; !sent.stop && getppid() == parent; now = Clock::now()) {
        if (now >= renewal) {
            map.closeConnection();
            datagrams.emplace(toTheMap);
            renewal += period;
        }
        if (!map.connected() && server.acceptConnectionNonBlock(map)) {
            ++sent.connections;
        }
        if (sent.connections > 0 && !datagrams) {
            datagrams.emplace(toTheMap);
        }
        auto round =
            traffic.messagesAt(startS + pace * std::chrono::duration<double>(now - start).count());
        if (map.connected()) {
            std::get<OwnShipMessage>(round.front()).reserved = ++sent.tcpRounds;
            sendRound(map, round);
        }
        if (datagrams) {
            std::get<OwnShipMessage>(round.front()).reserved = ++sent.udpRounds;
            for (const FeedMessage& message : round) {
                datagrams->send(message);
            }
        }
        std::this_thread::sleep_until(now + betweenRounds);
    }
    map.closeConnection();
    sent.ended = true;
}

void RoundOrder::take(const FeedMessage& message) {
    if (const auto* own = std::get_if<OwnShipMessage>(&message)) {
        mFaults += own->reserved != mRound + 1 || mTarget != targetsOfARound ? 1 : 0;
        mRound = own->reserved;
        mTarget = 0;
    } else {
        const std::uint32_t target = std::get<TargetMessage>(message).number;
        mFaults += target != mTarget + 1 ? 1 : 0;
        mTarget = target;
    }
}

// A line of Linux's list: number, local address and port in hexadecimal digits, ten columns more,
// then what was dropped.
unsigned long droppedDatagrams(int port) {
    std::ifstream list("/proc/net/udp");
    unsigned long dropped = 0;
    for (std::string line; std::getline(list, line);) {
        std::istringstream columns(line);
        std::vector<std::string> words{std::istream_iterator<std::string>(columns), {}};
        const std::size_t colon = words.size() < 3 ? std::string::npos : words[1].find(':');
        if (colon != std::string::npos &&
            std::stoi(words[1].substr(colon + 1), nullptr, 16) == port) {
            dropped += std::stoul(words.back());
        }
    }
    return dropped;
}

}  // namespace OrlekTest
