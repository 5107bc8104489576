#include "network/Download.h"
#include "network/Nginx.h"
#include "support/OpenFiles.h"

namespace {

using namespace OrlekTest;
using Hosts = Orlek::Network::Network;

constexpr std::size_t longestAnswer = 1048576;

std::string anyBytes(std::size_t size) {
    std::string bytes(size, '\0');
    std::uint32_t state = 1;
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

/// What the server answers to another client.
struct Answer {
    std::string header;
    std::string body;  ///< when asked for
};
Answer answerTo(const std::string& path, bool withBody) {
    const PlainPeer client = PlainPeer::connectedTo(80);
    client.send(requestFor("127.0.0.1", path));
    Answer answer;
    while (!answer.header.ends_with("\r\n\r\n")) {
        const std::string next = client.receive(1, 20000);
        if (next.empty()) {
            throw std::runtime_error("nginx does not answer " + path);
        }
        answer.header += next;
    }
    answer.body = withBody ? client.receive() : "";
    return answer;
}

Downloaded download(const std::string& url, const TempDir& dir, const Downloaded& expected) {
    return downloadedBy(
        [&url](const std::string& target) { return Hosts::getFileHttp(url, target); }, dir,
        expected);
}

void checkFiles(const Nginx& nginx) {
    constexpr std::size_t nearBound = 1048000;
    nginx.serve("near", anyBytes(nearBound));
    const std::size_t room = longestAnswer - answerTo("/near", false).header.size();
    const TempDir dir;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{102400}, room - 1,
                                   room, room + 1, 2 * longestAnswer}) {
        const std::string bytes = anyBytes(size);
        nginx.serve("file", bytes);
        const std::size_t header = answerTo("/file", false).header.size();
        const Downloaded expected = {
            true, size == 0 ? untouched : bytes.substr(0, longestAnswer - header)};
        EXPECT_EQ(expected.content.size() == size, size != 0 && size <= room) << size;
        EXPECT_EQ(download("http://127.0.0.1/file", dir, expected), expected) << size;
    }
}

void checkPages(const Nginx& nginx) {
    struct Row {
        const char* url;
        const char* path;
        const char* part;
    };
    const Row rows[] = {
        {"http://127.0.0.1/lines", "/lines", "a\r\n\r\nb"},
        {"127.0.0.1/lines?x=1", "/lines?x=1", "a\r\n\r\nb"},
        {"http://127.0.0.1/missing", "/missing", "404 Not Found"},
        {"http://127.0.0.1/listing", "/listing", "301 Moved Permanently"},
        {"http://127.0.0.1/listing/", "/listing/", "<a href=\"inside\">"},
        {"http://127.0.0.1", "http://127.0.0.1", "403 Forbidden"},
        {"http://127.0.0.1/%%", "/%%", "400 Bad Request"},
    };
    nginx.serve("lines", "a\r\n\r\nb\r\n\r\n");
    nginx.serve("listing/inside", "x");
    const TempDir dir;
    for (const Row& row : rows) {
        const Downloaded expected = {true, answerTo(row.path, true).body};
        EXPECT_NE(expected.content.find(row.part), std::string::npos) << expected;
        EXPECT_EQ(download(row.url, dir, expected), expected) << row.url;
    }
}

TEST(Download, KeepsWhatARealServerSends) {
    if (Nginx::program().empty()) {
        GTEST_SKIP() << "nginx is not installed";
    }
    onPort80([] {
        const Nginx nginx;
        const auto before = openFiles();
        checkFiles(nginx);
        checkPages(nginx);
        EXPECT_EQ(openFiles(), before);
    });
}

}  // namespace
