// Datagrams with messages from anybody.
#pragma once

#include <Orlek/Network.h>

#include <array>
#include <optional>

#include "FeedMessage.h"
#include "FeedUrl.h"

namespace MovingMap {

/// Listens on a port of all local addresses; several maps may listen on one.
class UdpLink {
public:
    /// Throws std::runtime_error when the port cannot be opened.
    explicit UdpLink(const FeedUrl& url);

    /// Takes the next message.
    /// @param[out] message nothing when it is not valid
    /// @return false when none has come
    bool next(std::optional<FeedMessage>& message);

private:
    Orlek::Network::SocketUdp mSocket;
    std::array<std::byte, 2048> mDatagram;  // A longer one is no message.
};

}  // namespace MovingMap
