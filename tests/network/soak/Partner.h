// One of two processes that exchange random packages over connections that end again and again.
//
// What the library promises, the partners rely on, and nothing else: a connection delivers whole
// packages in order; the queue keeps 200; a connection that ends may lose what was under way.
//   user0  number of a data package, 0, 1, 2 ... over all connections
//   user1  number of the data package that the sender of this package expects next
//   user2  how many packages of any kind its sender has taken on this connection
// By user2 a partner keeps below 200 packages under way. By user1 it knows what to send again on
// the next connection; what the other has already is told by its number. In an orderly close both
// stop with new data, wait until all is acknowledged and say so; nothing may come again then.
// Packages without data carry these numbers when there is none, and drive the queue.
#pragma once

#include <Orlek/Network/SocketTcp.h>
#include <Orlek/Network/SocketTcpServer.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "RandomPackages.h"

namespace OrlekTest {

/// What a partner did and saw.
struct Tally {
    std::uint64_t sent = 0;      ///< data packages that the other has acknowledged
    std::uint64_t received = 0;  ///< data packages
    std::uint64_t bytes = 0;     ///< payload of the received ones
    std::uint64_t again = 0;     ///< received a second time after a broken connection
    std::uint64_t broken = 0;    ///< connections that it broke off
    std::uint64_t closed = 0;    ///< connections that it closed in order
    std::uint64_t ended = 0;     ///< connections whose end it was told
    long memoryKib = 0;          ///< largest between connections, first third of the time
    long memoryLaterKib = 0;     ///< the same, afterwards
    char fault[120] = {};        ///< empty when all was well
};

/// What both processes see.
struct Shared {
    Tally tally[2];
    std::atomic<bool> stop = false;  ///< one of them has found a fault
};

struct Plan {
    std::uint64_t seed = 1;
    std::chrono::seconds duration{600};
    int port = 0;
};

class Partner {
public:
    /// Connects, or waits for connections when there is a listener.
    Partner(const Plan& plan, Orlek::Network::SocketTcpServer* listener, Shared& shared);

    /// Until the time is up or a fault is found, which then stands in the tally.
    void run();

private:
    using Clock = std::chrono::steady_clock;

    void live();
    void connect();
    void narrow();
    void watchResources();
    void receiveSome();
    void take(const Orlek::Network::MsgHeader& header);
    void takeData(const Orlek::Network::MsgHeader& header);
    void sendSome();
    void write(const std::byte* payload, Orlek::Network::MsgHeader header);
    void linkEnded();
    void maybeEnd();
    void breakOff();
    void pause();

    bool connects() const { return mListener == nullptr; }
    bool allAcknowledged() const { return mAcknowledged == mCreated; }
    std::uint32_t underWay() const { return mWritten - mPeerTook; }
    std::uint32_t dice(std::uint32_t largest);
    Clock::duration randomTime(std::chrono::milliseconds longest);
    void progress();

    Orlek::Network::SocketTcpServer* mListener;
    Shared& mShared;
    Tally& mTally;
    int mPort;
    RandomPackages mMine;
    RandomPackages mTheirs;
    std::mt19937_64 mRandom;
    Orlek::Network::SocketTcp mLink;
    std::vector<std::byte> mPayload = std::vector<std::byte>(longestPayload);
    std::ptrdiff_t mOpenFiles = 0;
    Clock::time_point mStart = Clock::now();
    Clock::time_point mEnd;

    // over all connections
    std::uint32_t mCreated = 0;       ///< number of the next new data package
    std::uint32_t mAcknowledged = 0;  ///< the other has all before it
    std::uint32_t mExpected = 0;      ///< all before it have come
    bool mInOrder = true;             ///< the last connection was closed in order
    bool mFinished = false;
    Clock::time_point mLastProgress = Clock::now();

    // of this connection
    std::uint32_t mNext = 0;  ///< number of the data package to write next
    std::uint32_t mWritten = 0;
    std::uint32_t mPeerTook = 0;
    std::uint32_t mTook = 0;
    std::uint32_t mArrived = 0;   ///< data packages
    std::uint32_t mNextHere = 0;  ///< number of the data package that must follow
    std::uint32_t mHeard = 0;     ///< the other wants to close
    bool mSaid = false;           ///< this one agreed
    Clock::time_point mDrainAt;   ///< begin of an orderly close
    Clock::time_point mBreakAt;
    Clock::time_point mLastWrite;
    Clock::duration mBeat{};
};

}  // namespace OrlekTest
