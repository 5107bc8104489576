#include "UdpLink.h"

#include <stdexcept>
#include <string>

namespace MovingMap {

UdpLink::UdpLink(const FeedUrl& url) : mDatagram{} {
    if (!mSocket.openReceiveSocket(0, url.port, 0)) {
        throw std::runtime_error("--feed: cannot listen on UDP port " + std::to_string(url.port));
    }
}

bool UdpLink::next(std::optional<FeedMessage>& message) {
    const int size = mSocket.read(mDatagram.data(), static_cast<unsigned int>(mDatagram.size()));
    if (size < 0) {
        return false;
    }
    message = readDatagram(std::span(mDatagram).first(static_cast<std::size_t>(size)));
    return true;
}

}  // namespace MovingMap
