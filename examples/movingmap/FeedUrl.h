// Where the live data come from, as text.
#pragma once

#include <string>

namespace MovingMap {

struct FeedUrl {
    std::string text;
    bool tcp = false;  ///< Otherwise UDP.
    std::string host;  ///< Of TCP.
    int port = 0;      ///< 1 to 65535.
};

/// Reads "tcp://host:port" or "udp://:port".
/// Throws std::runtime_error with one line when the text is neither.
FeedUrl parseFeedUrl(const std::string& text);

}  // namespace MovingMap
