#include "Feed.h"

namespace MovingMap {

namespace {

constexpr int mostAtOnce = 2000;

}  // namespace

Feed::Feed(const FeedUrl& url) : mSource(url.text) {
    if (url.tcp) {
        mLink.emplace<TcpLink>(url);
    } else {
        mLink.emplace<UdpLink>(url);
    }
}

bool Feed::connected() const {
    const TcpLink* const tcp = std::get_if<TcpLink>(&mLink);
    return tcp == nullptr || tcp->connected();
}

std::vector<FeedMessage> Feed::poll(double nowS) {
    TcpLink* const tcp = std::get_if<TcpLink>(&mLink);
    UdpLink* const udp = std::get_if<UdpLink>(&mLink);
    if (tcp != nullptr) {
        tcp->tend(nowS);
    }
    std::vector<FeedMessage> messages;
    std::optional<FeedMessage> message;
    for (int i = 0; i < mostAtOnce && (tcp != nullptr ? tcp->next(message) : udp->next(message));
         ++i) {
        if (message) {
            messages.push_back(*message);
        } else {
            ++mIgnored;
        }
    }
    return messages;
}

}  // namespace MovingMap
