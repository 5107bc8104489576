// What reaches a peer of SocketTcp that does not read, reads slowly or goes.
#include <algorithm>
#include <random>

#include "LinkTest.h"
#include "support/Capture.h"
#include "support/FailingAllocation.h"

namespace {

using namespace OrlekTest;
using Ids = std::vector<std::uint32_t>;

constexpr std::uint32_t count = 700;
constexpr std::uint32_t queued = 200;  // packages that wait at most
constexpr std::uint32_t huge = count + 1;

/// Of another size for each id; package `count` is empty and stands for the end.
std::string payloadOf(std::uint32_t id) {
    if (id == huge) {
        return std::string(1000000, 'h');
    }
    return std::string(id == count ? 0 : 1500 + id * 37 % 1000, char('a' + id % 26));
}

std::string packageOf(std::uint32_t id) {
    const std::string payload = payloadOf(id);
    const Orlek::Network::MsgHeader header{.id = id,
                                           .length = static_cast<std::uint32_t>(payload.size())};
    return std::string(reinterpret_cast<const char*>(&header), sizeof(header)) + payload;
}

class TcpSendTest : public LinkTest {
protected:
    void SetUp() override {
        // Small buffers of the system are soon full.
        PlainPeer::setBuffers(listener.descriptor(), 32768);
        connectSmall();
    }

    void connectSmall() {
        connectLink();
        PlainPeer::setBuffers(static_cast<int>(link.sd()), 32768);
    }

    /// Reads all that the link still sends: each write sends on what waits.
    void drain() {
        pollfd writable = {static_cast<int>(link.sd()), POLLOUT, 0};
        for (std::uint32_t i = 0; i < count; ++i) {
            stream += peer.receive(std::string::npos, 5);
            if (stream.ends_with(packageOf(count))) {
                return;
            }
            ASSERT_EQ(poll(&writable, 1, 5000), 1);
            write(count, "");
        }
        FAIL() << "the end did not come";
    }

    /// Ids of the packages in the stream, which holds whole ones only.
    Ids ids() const {
        Ids found;
        for (std::size_t at = 0; at < stream.size();) {
            std::uint32_t id = 0;
            std::memcpy(&id, stream.substr(at + 8, 4).data(), 4);
            const std::string expected = packageOf(id);
            if (stream.compare(at, expected.size(), expected) != 0) {
                ADD_FAILURE() << "no whole package at byte " << at;
                break;
            }
            at += expected.size();
            if (id != count) {
                found.push_back(id);
            }
        }
        return found;
    }

    std::string stream;
};

enum class Gone { nobody, peer, link };

TEST_F(TcpSendTest, KeepsTheNewestPackagesWholeAndInOrder) {
    struct Row {
        const char* name;
        std::size_t bite;  // the peer reads less after each package
        Gone gone;
        std::size_t fewest, most;  // packages sent before the last 200
    };
    for (const Row& row : {Row{"never reads", 1, Gone::nobody, 20, 400},
                           Row{"reads in small bites", 2000, Gone::nobody, 100, 480},
                           Row{"has gone meanwhile", 1, Gone::peer, 0, 1},
                           Row{"is left meanwhile", 1, Gone::link, 0, 1}}) {
        SCOPED_TRACE(row.name);
        std::mt19937 random(5);
        stream.clear();
        for (std::uint32_t id = 0; id < count; ++id) {
            write(id, payloadOf(id));
            if (const std::size_t bite = random() % row.bite) {
                stream += peer.receive(bite, 0);
            }
        }
        if (row.gone == Gone::peer) {
            peer.close();  // with bytes unread, which resets
            EXPECT_EQ(captureStderr([&] { EXPECT_EQ(readSoon(), -2); }),
                      "read: Connection reset by peer\n");
        }
        if (row.gone != Gone::nobody) {
            link.closeConnection();
            connectSmall();
        }
        drain();
        const Ids all = ids();
        ASSERT_GE(all.size(), queued + row.fewest);
        ASSERT_LE(all.size(), queued + row.most);
        EXPECT_EQ(std::adjacent_find(all.begin(), all.end(), std::greater_equal<>()), all.end());
        EXPECT_EQ(all[all.size() - queued], count - queued) << "one of the newest is missing";
        if (row.gone == Gone::nobody) {
            EXPECT_EQ(all[19], 19U) << "dropped before the queue was full";
        }
    }
}

TEST_F(TcpSendTest, ClosesWhenTheRestOfAPackageFindsNoMemory) {
    const auto writeWithoutMemory = [&] {
        const std::string bytes = payloadOf(huge);
        return captureStderr([&] { failingAllocation(1, [&] { write(huge, bytes); }); });
    };
    EXPECT_EQ(writeWithoutMemory(), "write: Cannot allocate memory\n");
    EXPECT_FALSE(link.connected());
    connectSmall();
    write(huge, payloadOf(huge));
    EXPECT_EQ(writeWithoutMemory(), "") << "lost whole, the stream goes on";
    write(1, payloadOf(1));
    drain();
    EXPECT_EQ(ids(), (Ids{huge, 1}));
}

TEST_F(TcpSendTest, RefusesWhatCannotBeSent) {
    header.length = 1048553;
    const auto refused = [&](const void* bytes) {
        return captureStdout([&] { EXPECT_EQ(link.writePackage(bytes, header, 0), 0); });
    };
    EXPECT_EQ(refused(payload.data()),
              "SocketTcp::writePackage refused a package of 1048577 bytes\n");
    header.length = 4;
    EXPECT_EQ(refused(nullptr), "SocketTcp::writePackage refused a package of 28 bytes\n");
    EXPECT_EQ(peer.receive(1, 20), "");
    peer.reset();
    pollfd ended = {static_cast<int>(link.sd()), 0, 0};
    ASSERT_EQ(poll(&ended, 1, 5000), 1);
    EXPECT_EQ(captureStdout([&] { write(1, "x"); }), "SocketTcp::writePackage ret -1\n");
    link.closeConnection();
    EXPECT_EQ(captureStdout([&] { write(1, "x"); }), "");
}

}  // namespace
