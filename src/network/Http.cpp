#include "network/Http.h"

#include <algorithm>

namespace Orlek::Detail {

bool isCleanUrl(std::string_view url) {
    return std::ranges::none_of(url, [](char c) {
        const auto code = static_cast<unsigned char>(c);
        return code < 0x20 || code == 0x7F;
    });
}

HttpTarget splitUrl(const std::string& url) {
    HttpTarget target{url, url};
    if (const std::size_t scheme = url.find("//"); scheme != std::string::npos) {
        target.host = url.substr(scheme + 2);
    }
    if (const std::size_t slash = target.host.find('/'); slash != std::string::npos) {
        target.path = target.host.substr(slash);
        target.host.resize(slash);
    }
    return target;
}

std::string httpRequest(const HttpTarget& target) {
    return "GET " + target.path + " HTTP/1.1\r\n" +  //
           "Host: " + target.host + "\r\n" +         //
           "User-Agent: Orlek::Network.1.0\r\n" +    //
           "Accept: */*\r\n\r\n";
}

std::string_view httpBody(std::string_view answer) {
    constexpr std::string_view emptyLine = "\r\n\r\n";
    const std::size_t end = answer.find(emptyLine);
    return end == std::string_view::npos ? std::string_view()
                                         : answer.substr(end + emptyLine.size());
}

}  // namespace Orlek::Detail
