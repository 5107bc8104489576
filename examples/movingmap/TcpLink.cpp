#include "TcpLink.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <chrono>
#include <stdexcept>

namespace MovingMap {

namespace {

using namespace Orlek::Network;

constexpr double betweenAttemptsS = 1.0;
constexpr unsigned int attemptMs = 500;
constexpr std::size_t longestPayload = 1048551;  // Of a package.

// Lets the system ask a silent sender whether it is still there: a map that only reads would wait
// without end for one whose machine is gone.
void watchPeer(const SocketTcp& link) {
    const auto set = [&](int level, int option, int value) {
        setsockopt(static_cast<int>(link.sd()), level, option, &value, sizeof value);
    };
    set(IPPROTO_TCP, TCP_KEEPIDLE, 5);
    set(IPPROTO_TCP, TCP_KEEPINTVL, 2);
    set(IPPROTO_TCP, TCP_KEEPCNT, 3);
    set(SOL_SOCKET, SO_KEEPALIVE, 1);
}

SocketTcp connect(unsigned long address, int port) {
    SocketTcp link;
    if (link.createTcpClientSocketNonBlock(address, port, attemptMs)) {
        watchPeer(link);
    }
    return link;
}

}  // namespace

TcpLink::TcpLink(const FeedUrl& url)
    : mAddress(Network::getAddressFromName(url.host)), mPort(url.port), mPayload(longestPayload) {
    if (mAddress == 0) {
        throw std::runtime_error("--feed: host '" + url.host + "' has no address");
    }
}

TcpLink::~TcpLink() {
    mLink.closeConnection();
    takeAttempt();
    mLink.closeConnection();
}

// Without memory or threads an attempt has failed as without a sender.
void TcpLink::takeAttempt() {
    try {
        if (mAttempt.valid()) {
            mLink = mAttempt.get();
        }
    } catch (const std::exception&) {
        mLink.closeConnection();
    }
}

void TcpLink::beginAttempt() {
    try {
        mAttempt = std::async(std::launch::async, connect, mAddress, mPort);
    } catch (const std::exception&) {
        mAttempt = {};
    }
}

void TcpLink::tend(double nowS) {
    if (mAttempt.valid() &&
        mAttempt.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        takeAttempt();
    }
    if (!mLink.connected() && !mAttempt.valid() && nowS >= mNextAttemptS) {
        beginAttempt();
        mNextAttemptS = nowS + betweenAttemptsS;
    }
}

bool TcpLink::next(std::optional<FeedMessage>& message) {
    if (!mLink.connected()) {
        return false;
    }
    // Only the header tells: a sender may choose the ids that the call returns for no package.
    MsgHeader header;
    header.version = 0;
    mLink.readPackage(mPayload.data(), header);
    if (header.version == 0) {
        if (!mLink.connected()) {
            mLink = SocketTcp();  // Nothing of this connection shall be taken for the next one's.
        }
        return false;
    }
    message = readMessage(header.id, std::span(mPayload).first(header.length));
    return true;
}

}  // namespace MovingMap
