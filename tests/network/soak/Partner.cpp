#include "Partner.h"

#include <malloc.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>

#include "support/Memory.h"
#include "support/OpenFiles.h"

namespace OrlekTest {

using namespace std::chrono_literals;
using Orlek::Network::MsgHeader;
using Orlek::Network::SocketTcp;

namespace {

// Ids of packages without data.
constexpr std::uint32_t beatId = 1;
constexpr std::uint32_t closingId = 2;
constexpr std::uint32_t lastClosingId = 3;

constexpr std::uint32_t dataLimit = 120;
constexpr std::uint32_t limit = 195;
constexpr auto shortestBeat = 2ms;
constexpr auto longestBeat = 50ms;
constexpr auto longestStall = 30s;
constexpr unsigned long loopback = 0x7F000001;

void demand(bool holds, const char* fault) {
    if (!holds) {
        throw std::runtime_error(fault);
    }
}

}  // namespace

Partner::Partner(const Plan& plan, Orlek::Network::SocketTcpServer* listener, Shared& shared)
    : mListener(listener),
      mShared(shared),
      mTally(shared.tally[listener == nullptr ? 1 : 0]),
      mPort(plan.port),
      mMine(plan.seed, connects() ? 1 : 0),
      mTheirs(plan.seed, connects() ? 0 : 1),
      mRandom(plan.seed + (connects() ? 1 : 0)),
      mEnd(mStart + plan.duration) {}

void Partner::run() {
    try {
        live();
    } catch (const std::exception& fault) {
        std::snprintf(mTally.fault, sizeof(mTally.fault), "%s", fault.what());
        mShared.stop = true;
    }
    mTally.sent = mAcknowledged;
    mTally.received = mExpected;
}

void Partner::live() {
    mOpenFiles = openFiles();
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
    mLink = SocketTcp();
    watchResources();
}

void Partner::connect() {
    mLink = SocketTcp();
    watchResources();
    const bool connected = connects() ? mLink.createTcpClientSocketNonBlock(loopback, mPort, 1000)
                                      : mListener->acceptConnectionNonBlock(mLink);
    if (!connected) {
        return;
    }
    if (dice(1) == 0) {
        narrow();
    }
    mNext = mAcknowledged;
    mWritten = mPeerTook = mTook = mArrived = mHeard = 0;
    mSaid = false;
    mLastWrite = Clock::now();
    mDrainAt = std::min(mEnd, Clock::now() + randomTime(3s));
    mBreakAt = Clock::now() + randomTime(6s);
    progress();
}

/// Small buffers of the system, so that packages go out in parts and the queue fills. As only
/// writing drives the queue, they must take the longest package in fewer parts than `limit` leaves
/// writes beside the data.
void Partner::narrow() {
    const int size = static_cast<int>(dice(200000)) + 100000;
    setsockopt(static_cast<int>(mLink.sd()), SOL_SOCKET, SO_SNDBUF, &size, sizeof(size));
    setsockopt(static_cast<int>(mLink.sd()), SOL_SOCKET, SO_RCVBUF, &size, sizeof(size));
}

/// Between connections, when nothing of the last one may be left.
void Partner::watchResources() {
    demand(openFiles() == mOpenFiles, "descriptors are left open");
    malloc_trim(0);
    long& most =
        Clock::now() - mStart < (mEnd - mStart) / 3 ? mTally.memoryKib : mTally.memoryLaterKib;
    most = std::max(most, residentKib());
}

void Partner::receiveSome() {
    for (std::uint32_t left = dice(40); left > 0; --left) {
        MsgHeader header;
        const int id = mLink.readPackage(mPayload.data(), header);
        if (id == -2) {
            linkEnded();
        }
        if (id == -1 || id == -2) {
            return;
        }
        demand(header.id == static_cast<std::uint32_t>(id), "the id differs from the header's");
        take(header);
    }
}

void Partner::take(const MsgHeader& header) {
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

void Partner::takeData(const MsgHeader& header) {
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

void Partner::sendSome() {
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
    header.id = !agreed ? beatId : Clock::now() >= mEnd && connects() ? lastClosingId : closingId;
    mSaid = agreed;
    mBeat = std::min<Clock::duration>(mBeat * 2, longestBeat);
    write(nullptr, header);
}

void Partner::write(const std::byte* payload, MsgHeader header) {
    header.user1 = mExpected;
    header.user2 = mTook;
    demand(mLink.writePackage(payload, header, header.length) == 0, "writePackage is not 0");
    ++mWritten;
    mLastWrite = Clock::now();
}

/// The other has ended the connection.
void Partner::linkEnded() {
    ++mTally.ended;
    mInOrder = mHeard != 0 && mSaid;
    mFinished = mInOrder && mHeard == lastClosingId;
}

/// Closes when both have agreed and all is acknowledged, breaks off when the time has come.
void Partner::maybeEnd() {
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
void Partner::breakOff() {
    if (dice(1) == 0) {
        const linger now = {1, 0};
        setsockopt(static_cast<int>(mLink.sd()), SOL_SOCKET, SO_LINGER, &now, sizeof(now));
    }
    mLink.closeConnection();
    ++mTally.broken;
    mInOrder = false;
}

void Partner::pause() {
    const std::uint32_t kind = dice(999);
    if (kind < 2) {
        std::this_thread::sleep_for(randomTime(400ms));
    } else if (kind < 50) {
        std::this_thread::sleep_for(randomTime(30ms));
    } else if (kind < 500) {
        std::this_thread::sleep_for(randomTime(2ms));
    }
}

std::uint32_t Partner::dice(std::uint32_t largest) {
    return std::uniform_int_distribution<std::uint32_t>(0, largest)(mRandom);
}

Partner::Clock::duration Partner::randomTime(std::chrono::milliseconds longest) {
    const Clock::duration limited = longest;
    return Clock::duration(std::uniform_int_distribution<Clock::rep>(0, limited.count())(mRandom));
}

void Partner::progress() {
    mBeat = shortestBeat;
    mLastProgress = Clock::now();
}

}  // namespace OrlekTest
