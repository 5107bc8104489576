#include "network/Http.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Orlek::Detail;

TEST(Http, SplitsUrls) {
    struct Row {
        std::string url, host, path;
    };
    const std::vector<Row> rows = {
        {"http://maps.example/a/b.png?x=1", "maps.example", "/a/b.png?x=1"},
        {"maps.example/a", "maps.example", "/a"},
        {"//maps.example/", "maps.example", "/"},
        {"http://maps.example", "maps.example", "http://maps.example"},  // no "/" after the host
        {"maps.example", "maps.example", "maps.example"},
        {"http://a/b//c/d", "a", "/b//c/d"},
        {"a/b//c/d", "c", "/d"},  // the first "//" counts, wherever it stands
        {"http:///a", "", "/a"},
        {"//", "", "//"},
        {"/a", "", "/a"},
        {"/", "", "/"},
        {"", "", ""},
    };
    for (const Row& row : rows) {
        const HttpTarget target = splitUrl(row.url);
        EXPECT_EQ(target.host, row.host) << row.url;
        EXPECT_EQ(target.path, row.path) << row.url;
    }
}

TEST(Http, RefusesControlCharactersOnly) {
    for (int code = 0; code < 256; ++code) {
        const std::string url = std::string("http://a/b") + static_cast<char>(code) + "c";
        EXPECT_EQ(isCleanUrl(url), code >= 32 && code != 127) << code;
    }
}

TEST(Http, FindsTheBody) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"HTTP/1.1 200 OK\r\nA: b\r\n\r\nbody", "body"},
        {"HTTP/1.1 200 OK\r\n\r\nx", "x"},
        {"HTTP/1.1 200 OK\r\n\r\nbo\r\n\r\ndy", "bo\r\n\r\ndy"},
        {"A\r\n\r\n\r\n\r\n", "\r\n\r\n"},
        {"A\r\n\r\n\r\n", "\r\n"},
        {"\r\n\r\n.", "."},
        {"\r\r\n\r\n.", "."},
        {"HTTP/1.1 204 No Content\r\n\r\n", ""},
        {"HTTP/1.1 200 OK\r\nA: b\r\n", ""},
        {"HTTP/1.1 200 OK\n\nbody", ""},
        {"\r\n\r", ""},
        {"", ""},
    };
    for (const auto& [answer, body] : rows) {
        EXPECT_EQ(httpBody(answer), body) << answer;
    }
}

}  // namespace
