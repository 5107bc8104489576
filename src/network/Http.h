// The text side of a download over HTTP/1.1 (RFC 9112): what is asked of which host, and where the
// body of an answer starts. A request is a line with the method, the path and the version, then
// header lines, then an empty line; an answer is a status line and header lines up to an empty
// line, then the body. Lines end with CR LF.
#pragma once

#include <string>
#include <string_view>

namespace Orlek::Detail {

/// Where a URL leads.
struct HttpTarget {
    std::string host;
    std::string path;
};

/// Whether a URL holds no control character. One with line ends could smuggle header lines of its
/// own into a request.
bool isCleanUrl(std::string_view url);

/// Splits a URL: the host is what stands between the first "//", or the start where there is none,
/// and the next "/"; the path is the rest from that "/" on. Without that "/" the whole URL is the
/// path. Ports, user names and queries are not taken apart.
HttpTarget splitUrl(const std::string& url);

/// The text of a GET request.
std::string httpRequest(const HttpTarget& target);

/// The body inside an answer: what follows the first empty line; empty when there is none.
std::string_view httpBody(std::string_view answer);

}  // namespace Orlek::Detail
