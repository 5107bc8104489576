// The map program downloads from a server on port 80 of a network of its own.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <map>
#include <string>
#include <thread>

#include "ProgramRun.h"
#include "network/Download.h"
#include "network/PlainPeer.h"
#include "support/Process.h"
#include "terrain/TileFiles.h"

namespace {

using OrlekTest::PlainPeer;
using OrlekTest::Process;

// Answers requests for a path of nine characters with the bytes, as a web server would, until the
// socket is shut down.
void serve(const PlainPeer& server, const std::map<std::string, std::string>& files) {
    const std::size_t size = OrlekTest::requestFor("127.0.0.1", "/good.png").size();
    for (PlainPeer client = server.accepted(); client.descriptor() >= 0;
         client = server.accepted()) {
        client.send("HTTP/1.1 200 OK\r\n\r\n" + files.at(client.receive(size, 5000).substr(4, 9)));
    }
}

int noise(int i, int j) {
    return (i * 7919 + j * 104729) % 1009;
}

using Fetch = OrlekTest::ProgramRun;

TEST_F(Fetch, bringsAMapImageOrSaysWhyNot) {
    OrlekSupport::Image blue(1, 1);
    blue.rgba = {0, 0, 255, 255};
    OrlekSupport::writePng(mDir.path("blue.png"), blue);
    const std::string png = OrlekTest::wholeText(mDir.path("blue.png"));
    const std::string zip = OrlekTest::archiveOf(OrlekTest::srtmSamples(1201, 1201, noise));
    OrlekTest::DtedLabel label = OrlekTest::dtedLabelAt(45, 6);
    label.numLat = label.numLon = "0101";
    const std::string dted = OrlekTest::dtedFile(label, noise);
    const std::string page = "<html>no such file</html>";
    const std::map<std::string, std::string> files = {{"/good.png", png},
                                                      {"/page.png", page},
                                                      {"/half.png", png.substr(0, 40)},
                                                      {"/none.png", ""},
                                                      {"/page.zip", page},
                                                      {"/half.zip", zip.substr(0, 5000)},
                                                      {"/half.DT1", dted.substr(0, 5000)},
                                                      {"/good.DT1", dted}};
    const struct {
        std::string url;
        std::string file;
        std::string says;
        bool there;
    } rows[] = {
        {"http://127.0.0.1/good.png", "new/good.png", "", true},
        {"http://127.0.0.1/page.png", "page.png", ": ", false},
        {"http://127.0.0.1/half.png", "half.png", ": ", false},
        {"http://127.0.0.1/none.png", "none.png", ": the answer has no file", false},
        {"http://127.0.0.1/page.zip", "page.zip", ": the answer is a page", false},
        {"http://127.0.0.1/half.zip", "half.zip", ": the answer is no whole tile", false},
        {"http://127.0.0.1/half.DT1", "half.DT1", ": the answer is no whole tile", false},
        {"http://127.0.0.1/good.DT1", "good.DT1", "", true},
        {"http://10.9.8.7/far.png", "far.png", ": no answer", false},
        {"http://127.0.0.1/page.png", "new/good.png", ": ", true},
    };
    std::string command = MAP " --width 640 --height 480 --map-image " + mDir.path("page.png") +
                          mNoTiles + "--out " + mDir.path("map.png");
    for (const auto& row : rows) {
        command.append(" --fetch " + row.url + " " + mDir.path(row.file));
    }
    OrlekTest::onPort80([&] {
        const PlainPeer server = PlainPeer::listening(80);
        std::thread serving([&] { serve(server, files); });
        Process drawing(words(command), mDir.path("said"));
        EXPECT_EQ(drawing.wait(), 0) << drawing.output();
        shutdown(server.descriptor(), SHUT_RDWR);
        serving.join();
        const std::string said = drawing.output();
        for (const auto& [url, name, says, there] : rows) {
            const std::string path = mDir.path(name);
            EXPECT_NE(said.find(says.empty() ? "fetched " + path : "cannot fetch " + url + says),
                      std::string::npos)
                << url << said;
            EXPECT_EQ(std::filesystem::exists(path), there) << url;
            EXPECT_TRUE(!there || !path.ends_with(".png") ||
                        OrlekSupport::readPng(path).rgba == blue.rgba)
                << url;
        }
    });
}

}  // namespace
