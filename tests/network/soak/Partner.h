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
#include <malloc.h>
#include <sys/socket.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <thread>

#include "RandomPackages.h"
#include "network/PlainPeer.h"
#include "support/Memory.h"
#include "support/OpenFiles.h"

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
    Partner(const Plan& plan, Orlek::Network::SocketTcpServer* listener, Shared& shared)
        : mListener(listener),
          mShared(shared),
          mTally(shared.tally[connects() ? 1 : 0]),
          mPort(plan.port),
          mMine(plan.seed, connects() ? 1 : 0),
          mTheirs(plan.seed, connects() ? 0 : 1),
          mRandom(plan.seed + (connects() ? 1 : 0)),
          mEnd(mStart + plan.duration) {}

    /// Until the time is up or a fault is found, which then stands in the tally.
    void run() {
        try {
            live();
        } catch (const std::exception& fault) {
            std::snprintf(mTally.fault, sizeof(mTally.fault), "%s", fault.what());
            mShared.stop = true;
        }
        mTally.sent = mAcknowledged;
        mTally.received = mExpected;
    }

private:
    using Clock = std::chrono::steady_clock;
    using MsgHeader = Orlek::Network::MsgHeader;
    using Milliseconds = std::chrono::milliseconds;

    // Ids of packages without data.
    static constexpr std::uint32_t beatId = 1;
    static constexpr std::uint32_t closingId = 2;
    static constexpr std::uint32_t lastClosingId = 3;

    static constexpr std::uint32_t dataLimit = 120;
    static constexpr std::uint32_t limit = 195;
    static constexpr Milliseconds shortestBeat{2};
    static constexpr Milliseconds longestBeat{50};
    static constexpr std::chrono::seconds longestStall{30};

    static void demand(bool holds, const char* fault) {
        if (!holds) {
            throw std::runtime_error(fault);
        }
    }

    void live() {
        while (!mFinished && !mShared.stop) {
            demand(Clock::now() - mLastProgress < longestStall, "nothing moves any more");
            if (!mLink.connected()) {
                connect();
                continue;
            }
            receiveSome();
            if (mLink.connected()) {
                sendSome();
                maybeEnd();
            }
            pause();
        }
        mLink.closeConnection();
        mLink = Orlek::Network::SocketTcp();
        watchResources();
    }

    void connect() {
        mLink = Orlek::Network::SocketTcp();
        watchResources();
        const bool connected = connects()
                                   ? mLink.createTcpClientSocketNonBlock(loopback, mPort, 1000)
                                   : mListener->acceptConnectionNonBlock(mLink);
        if (!connected) {
            return;
        }
        if (dice(1) == 0) {
            // Small buffers of the system, so that packages go out in parts and the queue fills. As
            // only writing drives the queue, they must take the longest package in fewer parts than
            // `limit` leaves writes beside the data.
            PlainPeer::setBuffers(descriptor(), static_cast<int>(dice(200000)) + 100000);
        }
        mNext = mAcknowledged;
        mWritten = mPeerTook = mTook = mArrived = mHeard = 0;
        mSaid = false;
        mLastWrite = Clock::now();
        mDrainAt = std::min(mEnd, Clock::now() + randomTime(3000));
        mBreakAt = Clock::now() + randomTime(6000);
        progress();
    }

    /// Between connections, when nothing of the last one may be left.
    void watchResources() {
        demand(openFiles() == mOpenFiles, "descriptors are left open");
        malloc_trim(0);
        long& most =
            Clock::now() - mStart < (mEnd - mStart) / 3 ? mTally.memoryKib : mTally.memoryLaterKib;
        most = std::max(most, residentKib());
    }

    void receiveSome() {
        for (std::uint32_t left = dice(40); left > 0; --left) {
            MsgHeader header;
            const int id = mLink.readPackage(mPayload.data(), header);
            if (id == -2) {
                // The other has ended the connection.
                ++mTally.ended;
                mInOrder = mHeard != 0 && mSaid;
                mFinished = mInOrder && mHeard == lastClosingId;
            }
            if (id == -1 || id == -2) {
                return;
            }
            demand(header.id == static_cast<std::uint32_t>(id), "the id differs from the header's");
            take(header);
        }
    }

    void take(const MsgHeader& header) {
        ++mTook;
        demand(header.user1 >= mAcknowledged && header.user1 <= mCreated,
               "data acknowledged that was not sent");
        demand(header.user2 >= mPeerTook && header.user2 <= mWritten,
               "packages acknowledged that were not written");
        mAcknowledged = header.user1;
        mPeerTook = header.user2;
        if (header.id >= firstDataId) {
            takeData(header);
        } else {
            demand(header.length == 0, "a package without data has some");
            mHeard = header.id == beatId ? 0 : header.id;
        }
        progress();
    }

    void takeData(const MsgHeader& header) {
        const bool follows = mArrived == 0 ? header.user0 <= mExpected : header.user0 == mNextHere;
        demand(follows, "a package is missing or out of order");
        MsgHeader right;
        mTheirs.make(header.user0, right);
        demand(header.id == right.id && header.length == right.length, "another header arrived");
        demand(std::equal(mPayload.data(), mPayload.data() + header.length, mTheirs.payload()),
               "other bytes arrived");
        ++mArrived;
        mNextHere = header.user0 + 1;
        if (header.user0 < mExpected) {
            demand(!mInOrder, "sent again after an orderly close");
            ++mTally.again;
        } else {
            ++mExpected;
            mTally.bytes += header.length;
        }
    }

    void sendSome() {
        const bool draining = mHeard != 0 || (connects() && Clock::now() >= mDrainAt);
        for (std::uint32_t left = dice(30); left > 0 && underWay() < dataLimit; --left) {
            if (mNext == mCreated && draining) {
                break;
            }
            MsgHeader header;
            mMine.make(mNext++, header);
            mCreated = std::max(mCreated, mNext);
            write(mMine.payload(), header);
        }
        if (Clock::now() - mLastWrite < mBeat || underWay() >= limit) {
            return;
        }
        MsgHeader header;
        const bool agreed = draining && (connects() || allAcknowledged());
        header.id = !agreed                              ? beatId
                    : Clock::now() >= mEnd && connects() ? lastClosingId
                                                         : closingId;
        mSaid = agreed;
        mBeat = std::min<Clock::duration>(mBeat * 2, longestBeat);
        write(nullptr, header);
    }

    void write(const std::byte* payload, MsgHeader header) {
        header.user1 = mExpected;
        header.user2 = mTook;
        demand(mLink.writePackage(payload, header, header.length) == 0, "writePackage is not 0");
        ++mWritten;
        mLastWrite = Clock::now();
    }

    /// Closes when both have agreed and all is acknowledged, breaks off when the time has come.
    void maybeEnd() {
        if (connects() && mSaid && mHeard != 0 && allAcknowledged()) {
            mLink.closeConnection();
            ++mTally.closed;
            mInOrder = true;
            mFinished = Clock::now() >= mEnd;
        } else if (mHeard == 0 && !mSaid && Clock::now() >= mBreakAt) {
            breakOff();
        }
    }

    /// With a reset at once, or with whatever the system makes of a close in the middle.
    void breakOff() {
        if (dice(1) == 0) {
            const linger now = {1, 0};
            setsockopt(descriptor(), SOL_SOCKET, SO_LINGER, &now, sizeof(now));
        }
        mLink.closeConnection();
        ++mTally.broken;
        mInOrder = false;
    }

    void pause() {
        const std::uint32_t kind = dice(999);
        if (kind < 500) {
            std::this_thread::sleep_for(randomTime(kind < 2 ? 400 : kind < 50 ? 30 : 2));
        }
    }

    bool connects() const { return mListener == nullptr; }
    bool allAcknowledged() const { return mAcknowledged == mCreated; }
    std::uint32_t underWay() const { return mWritten - mPeerTook; }
    int descriptor() const { return static_cast<int>(mLink.sd()); }

    std::uint32_t dice(std::uint32_t largest) {
        return std::uniform_int_distribution<std::uint32_t>(0, largest)(mRandom);
    }

    Clock::duration randomTime(std::uint32_t longestMs) {
        return std::chrono::microseconds(dice(longestMs * 1000));
    }

    void progress() {
        mBeat = shortestBeat;
        mLastProgress = Clock::now();
    }

    Orlek::Network::SocketTcpServer* mListener;
    Shared& mShared;
    Tally& mTally;
    int mPort;
    RandomPackages mMine;
    RandomPackages mTheirs;
    std::mt19937_64 mRandom;
    Orlek::Network::SocketTcp mLink;
    std::vector<std::byte> mPayload = std::vector<std::byte>(longestPayload);
    std::ptrdiff_t mOpenFiles = openFiles();
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
