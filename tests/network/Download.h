// Downloads for tests: in a network where port 80 is free, into a file that is there already.
#pragma once

#include <Orlek/Network/Network.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "support/OwnNetwork.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace OrlekTest {

/// Runs `test` where nobody else listens on port 80, or skips the calling test.
template <typename Function>
void onPort80(Function&& test) {
    inOwnNetworkOrSkip(test, "port 80 is left to others");
}

inline const std::string untouched = "what the file held before";

/// What a plain HTTP/1.1 client would send.
inline std::string requestFor(const std::string& host, const std::string& path) {
    return "GET " + path + " HTTP/1.1\r\nHost: " + host +
           "\r\nUser-Agent: Orlek::Network.1.0\r\nAccept: */*\r\n\r\n";
}

struct Downloaded {
    bool answered = false;
    std::string content;

    bool operator==(const Downloaded&) const = default;
};

/// Only tells as much as one can read.
inline std::ostream& operator<<(std::ostream& out, const Downloaded& downloaded) {
    return out << (downloaded.answered ? "answered, " : "not answered, ")
               << downloaded.content.size() << " bytes: " << downloaded.content.substr(0, 300);
}

/// Downloads until all is as expected. A machine that stalls for 50 ms makes any server pause, and
/// a pause ends the answer: one that is late or cut is given four more attempts.
/// @param download takes the path of the target, gives what getFileHttp() gave.
template <typename Download>
Downloaded downloadedBy(Download&& download, const TempDir& dir, const Downloaded& expected) {
    Downloaded got;
    for (int attempt = 0; attempt < 5; ++attempt) {
        const std::string target = dir.write("target", untouched);
        got.answered = download(target);
        got.content = wholeText(target);
        const bool isCut = got.content == untouched || expected.content.starts_with(got.content);
        if (got == expected || !isCut) {
            break;
        }
    }
    return got;
}

}  // namespace OrlekTest
