// What SocketTcp makes of all that a peer may send, and of the ways in which it may go.
#include <fcntl.h>

#include <algorithm>
#include <random>

#include "LinkTest.h"
#include "support/Capture.h"

namespace {

using namespace OrlekTest;

using Pieces = std::vector<std::string>;

Pieces cut(const std::string& bytes, std::size_t longest) {
    std::mt19937 random(7);
    Pieces pieces;
    for (std::size_t at = 0; at < bytes.size(); at += pieces.back().size()) {
        pieces.push_back(bytes.substr(at, longest < 100 ? 1 + random() % longest : longest));
    }
    return pieces;
}

/// A header alone that promises `length` bytes.
std::string promise(std::uint32_t length) {
    std::string bytes = packageBytes(9, "");
    std::memcpy(&bytes[12], &length, 4);
    return bytes;
}

enum class End { stays, closes, resets };

struct Row {
    const char* name;
    Pieces pieces;  // each arrives when the one before has been read
    std::string packages;
    std::string lines;
    End end = End::stays;
};

class TcpReceiveTest : public LinkTest {
protected:
    /// Reads until nothing is there, and notes what comes.
    void readAll() {
        for (int id = read(); id != -1; id = read()) {
            packages += std::to_string(id) + (id < 0 ? "" : received()) + ";";
            if (id == -2) {
                return;
            }
        }
    }

    std::string playedBy(const Row& row) {
        packages.clear();
        std::string lines;
        const std::string errors = captureStderr([&] {
            lines = captureStdout([&] {
                for (const std::string& piece : row.pieces) {
                    arrive(piece);
                    readAll();
                }
                if (row.end != End::stays) {
                    row.end == End::resets ? peer.reset() : peer.close();
                    packages += std::to_string(readSoon()) + ";";
                }
            });
        });
        return lines + errors;
    }

    std::string packages;
};

TEST_F(TcpReceiveTest, ReadsWholePackagesOrSaysWhyNot) {
    const std::string one = packageBytes(1, "one"), two = packageBytes(2, ""),
                      bad = packageBytes(3, "bad", 0x1204), last = packageBytes(4, "last"),
                      longest(1048551, 'l');
    const auto wrong = [](const std::string& version) {
        return "Wrong KOVA version data received --> 0x" + version + ", should be 0x1203\n";
    };
    std::string many, manyRead;
    for (std::uint32_t id = 0; id < 200; ++id) {
        const std::string text(id % 4 == 0 ? 0 : id * 7919 % 300, char('a' + id % 26));
        many += packageBytes(id, text);
        manyRead += std::to_string(id) + text + ";";
    }
    const std::vector<Row> rows = {
        {"one byte at a time", cut(one + two + last, 1), "1one;2;4last;", ""},
        {"all at once", {one + two + last}, "1one;2;4last;", ""},
        {"random cuts", cut(many, 99), manyRead, ""},
        {"stops in a header", {one + last.substr(0, 10)}, "1one;", ""},
        {"closes in a header",
         {one + last.substr(0, 10)},
         "1one;-2;",
         "read: Success\n",
         End::closes},
        {"closes in a payload",
         {one, last.substr(0, 26)},
         "1one;-2;",
         "read: Success\n",
         End::closes},
        {"resets", {one}, "1one;-2;", "read: Connection reset by peer\n", End::resets},
        {"wrong version first", {bad + one, last}, "4last;", wrong("1204")},
        {"wrong version between", {one + bad + two, last}, "1one;4last;", wrong("1204")},
        {"wrong version after", {one + two + bad}, "1one;2;", wrong("1204")},
        {"wrong version in two cuts",
         {bad.substr(0, 23), bad.substr(23), last},
         "4last;",
         wrong("1204")},
        {"negative version", {packageBytes(3, "", 0x8001)}, "", wrong("ffff8001")},
        {"longest", cut(one + packageBytes(8, longest), 30000), "1one;8" + longest + ";", ""},
        {"longest promised", {promise(1048551)}, "", ""},
        {"one byte too long", {one + promise(1048552)}, "1one;-2;", "read: Message too long\n"},
        {"length of all bits", {promise(0xFFFFFFFF)}, "-2;", "read: Message too long\n"},
        {"24 + length is 0 in 32 bits", {promise(0xFFFFFFE8)}, "-2;", "read: Message too long\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(playedBy(row), row.lines) << row.name;
        EXPECT_EQ(packages, row.packages) << row.name;
        const bool ended = row.packages.ends_with("-2;");
        EXPECT_EQ(link.connected(), !ended) << row.name;
        EXPECT_EQ(link.sd() == ~std::uint64_t{0}, ended) << row.name;
        EXPECT_TRUE(!ended || read() == -2) << row.name;
        link.closeConnection();
        link = Orlek::Network::SocketTcp();
        connectLink();
    }
}

TEST_F(TcpReceiveTest, FillsInTheHeaderButItsReservedBytes) {
    header.reserved = 77;
    arrive(packageBytes(5, "abc"));
    EXPECT_EQ(read(), 5);
    EXPECT_EQ(header.user0, 0x44332211U);
    EXPECT_EQ(header.user1, 1U);
    EXPECT_EQ(header.user2, 2U);
    EXPECT_EQ(header.version, 0x1203);
    EXPECT_EQ(header.reserved, 77);
}

TEST_F(TcpReceiveTest, AsksTheSystemOnlyWhenNoWholePackageIsBuffered) {
    arrive(packageBytes(1, "") + packageBytes(2, "") + packageBytes(3, "", 0x1204));
    EXPECT_EQ(read(), 1);
    arrive(packageBytes(4, "") + packageBytes(5, "") + packageBytes(6, ""));
    EXPECT_EQ(read(), 2);
    // The wrong version is dropped, what the same call receives is not.
    captureStdout([&] { EXPECT_EQ(read(), 4); });
    const int kept = dup(static_cast<int>(link.sd()));
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, static_cast<int>(link.sd()));
    EXPECT_EQ(read(), 5);
    EXPECT_EQ(read(), 6);
    EXPECT_EQ(captureStderr([&] { EXPECT_EQ(read(), -2); }),
              "read: Socket operation on non-socket\n");
    close(kept);
    close(nothing);
}

TEST_F(TcpReceiveTest, KeepsBufferedPackagesOverAReconnect) {
    arrive(packageBytes(1, "") + packageBytes(2, "kept"));
    EXPECT_EQ(read(), 1);
    link.closeConnection();
    EXPECT_EQ(read(), -2);
    connectLink();
    EXPECT_EQ(read(), 2);
    EXPECT_EQ(received(), "kept");
}

}  // namespace
