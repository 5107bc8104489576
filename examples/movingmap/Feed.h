// Live data from another program.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "FeedMessage.h"
#include "TcpLink.h"
#include "UdpLink.h"

namespace MovingMap {

/// The messages of a sender over TCP or UDP. It never waits for the sender, survives whatever
/// comes, and finds the sender again when it was gone.
class Feed {
public:
    /// Throws std::runtime_error when the feed cannot exist: no such host, port in use.
    explicit Feed(const FeedUrl& url);

    /// The valid messages that have come, so many at most that a frame does not suffer.
    /// @param nowS a clock that runs evenly, seconds
    std::vector<FeedMessage> poll(double nowS);

    const std::string& source() const { return mSource; }

    /// Whether a sender is connected; with UDP, which knows no connections, always.
    bool connected() const;

    /// How many messages were not valid and have been ignored.
    unsigned long ignored() const { return mIgnored; }

private:
    std::string mSource;
    std::variant<std::monostate, TcpLink, UdpLink> mLink;
    unsigned long mIgnored = 0;
};

}  // namespace MovingMap
