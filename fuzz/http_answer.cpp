// Up to the first zero byte a URL, the rest the answer of a server. A URL without control
// characters is clean and gives a request of four lines, whatever stands in it; the body is what
// follows the first empty line of the answer.
#include <algorithm>
#include <string>
#include <string_view>

#include "FuzzTarget.h"
#include "network/Http.h"

namespace {

using namespace Orlek::Detail;

void checkRequest(const std::string& url) {
    const HttpTarget target = splitUrl(url);
    require(url.ends_with(target.path) && target.host.find('/') == std::string::npos);
    require(target.path == url || url.ends_with(target.host + target.path));
    const std::string request = httpRequest(target);
    require(
        request.substr(target.path.size() + 13).starts_with("\r\nHost: " + target.host + "\r\n"));
    const bool clean =
        std::ranges::none_of(url, [](char c) { return (c >= '\0' && c < ' ') || c == '\x7F'; });
    require(isCleanUrl(url) == clean);
    if (clean) {
        require(std::ranges::count(request, '\r') == 5 && std::ranges::count(request, '\n') == 5);
        require(request.find("\r\n\r\n") == request.size() - 4);
    }
}

void checkBody(std::string_view answer) {
    const std::string_view body = httpBody(answer);
    std::size_t start = 0;  // of the body: the bytes before it are the first empty line
    while (start < answer.size() && !answer.substr(0, start).ends_with("\r\n\r\n")) {
        ++start;
    }
    require(body.size() == answer.size() - start);
    require(body.empty() || body.data() == answer.data() + start);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t line = std::min(input.find('\0'), size);
    checkRequest(std::string(input.substr(0, line)));
    checkBody(input.substr(std::min(line + 1, size)));
    return 0;
}
