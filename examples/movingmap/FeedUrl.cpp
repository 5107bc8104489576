#include "FeedUrl.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "Number.h"

namespace MovingMap {

namespace {

constexpr std::size_t longestHost = 253;  // RFC 1035, section 2.3.4, without the length bytes.

bool isHost(const std::string& text) {
    return !text.empty() && text.size() <= longestHost &&
           std::all_of(text.begin(), text.end(), [](unsigned char c) {
               return std::isalnum(c) != 0 || c == '.' || c == '-' || c == '_';
           });
}

}  // namespace

FeedUrl parseFeedUrl(const std::string& text) {
    FeedUrl url;
    url.text = text;
    url.tcp = text.starts_with("tcp://");
    const std::size_t colon = text.rfind(':');
    if (url.tcp || text.starts_with("udp://")) {
        const std::size_t host = std::string("tcp://").size();
        url.host = colon >= host ? text.substr(host, colon - host) : "";
        url.port = OrlekSupport::parseNumber(text.substr(colon + 1), 1, 65535).value_or(0);
    }
    if (url.port == 0 || (url.tcp ? !isHost(url.host) : !url.host.empty())) {
        throw std::runtime_error("--feed: '" + text +
                                 "' is neither tcp://HOST:PORT nor udp://:PORT");
    }
    return url;
}

}  // namespace MovingMap
