// The map program downloads from a server on port 80 of a network of its own.
#include <Orlek/Network.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "ProgramRun.h"
#include "support/OwnNetwork.h"
#include "support/Process.h"

namespace {

using OrlekTest::Process;

// Answers requests for a path with the bytes, as a web server would, until it is to stop.
void serve(Orlek::Network::SocketTcpServer& server, const std::map<std::string, std::string>& files,
           const std::atomic<bool>& stop) {
    Orlek::Network::SocketTcp client;
    std::array<char, 2048> bytes{};
    while (!stop) {
        if (!server.acceptConnectionNonBlock(client)) {
            continue;
        }
        const int size = client.read(bytes.data(), bytes.size(), 5000);
        const std::string request(bytes.data(), static_cast<std::size_t>(std::max(size, 0)));
        const std::string path = request.substr(4, request.find(' ', 4) - 4);
        const std::string answer = "HTTP/1.1 200 OK\r\n\r\n" + files.at(path);
        send(static_cast<int>(client.sd()), answer.data(), answer.size(), MSG_NOSIGNAL);
        client.closeConnection();
    }
}

using Fetch = OrlekTest::ProgramRun;

TEST_F(Fetch, bringsAMapImageOrSaysWhyNot) {
    OrlekSupport::Image blue(1, 1);
    blue.rgba = {0, 0, 255, 255};
    OrlekSupport::writePng(mDir.path("blue.png"), blue);
    const std::string png = OrlekTest::wholeText(mDir.path("blue.png"));
    const std::string page = "<html>no such file</html>";
    const std::map<std::string, std::string> files = {{"/good.png", png},
                                                      {"/page.png", page},
                                                      {"/cut.png", png.substr(0, 40)},
                                                      {"/empty.png", ""},
                                                      {"/page.zip", page}};
    const struct {
        std::string url;
        std::string file;
        std::string says;
        bool there;
    } rows[] = {
        {"http://127.0.0.1/good.png", "new/good.png", "", true},
        {"http://127.0.0.1/page.png", "page.png", ": ", false},
        {"http://127.0.0.1/cut.png", "cut.png", ": ", false},
        {"http://127.0.0.1/empty.png", "empty.png", ": the answer has no file", false},
        {"http://127.0.0.1/page.zip", "page.zip", ": the answer is a page", false},
        {"http://10.9.8.7/far.png", "far.png", ": no answer", false},
        {"http://127.0.0.1/page.png", "new/good.png", ": ", true},
    };
    std::string command = MAP " --width 640 --height 480 --map-image " + mDir.path("page.png") +
                          mNoTiles + "--out " + mDir.path("map.png");
    for (const auto& row : rows) {
        command.append(" --fetch " + row.url + " " + mDir.path(row.file));
    }
    const std::string skipped = OrlekTest::inOwnNetwork([&] {
        Orlek::Network::SocketTcpServer server;
        ASSERT_TRUE(server.init(80));
        std::atomic<bool> stop = false;
        std::thread serving([&] { serve(server, files, stop); });
        Process drawing(words(command), mDir.path("said"));
        EXPECT_EQ(drawing.wait(), 0) << drawing.output();
        stop = true;
        serving.join();
        server.closeConnection();
        const std::string said = drawing.output();
        for (const auto& [url, name, says, there] : rows) {
            const std::string path = mDir.path(name);
            EXPECT_NE(said.find(says.empty() ? "fetched " + path : "cannot fetch " + url + says),
                      std::string::npos)
                << url << said;
            EXPECT_EQ(
                std::filesystem::exists(path) && OrlekSupport::readPng(path).rgba == blue.rgba,
                there)
                << url;
        }
    });
    if (!skipped.empty()) {
        GTEST_SKIP() << skipped << ": downloads from port 80 are not tried";
    }
}

}  // namespace
