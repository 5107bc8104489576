#include "TcpLink.h"

#include <chrono>
#include <stdexcept>

namespace MovingMap {

namespace {

using namespace Orlek::Network;

constexpr double betweenAttemptsS = 1.0;
constexpr unsigned int attemptMs = 500;
constexpr std::size_t longestPayload = 1048551;  // Of a package.

SocketTcp connect(unsigned long address, int port) {
    SocketTcp link;
    link.createTcpClientSocketNonBlock(address, port, attemptMs);
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
    if (mAttempt.valid()) {
        mAttempt.get().closeConnection();
    }
}

void TcpLink::tend(double nowS) {
    if (mAttempt.valid() &&
        mAttempt.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        mLink = mAttempt.get();
    }
    if (!mLink.connected() && !mAttempt.valid() && nowS >= mNextAttemptS) {
        mAttempt = std::async(std::launch::async, connect, mAddress, mPort);
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
