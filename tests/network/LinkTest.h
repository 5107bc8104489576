// A connection whose other end is a plain peer; what both have open is counted at the end.
#pragma once

#include <Orlek/Network/SocketTcp.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>

#include <string>
#include <vector>

#include "PlainPeer.h"
#include "support/OpenFiles.h"

namespace OrlekTest {

/// Waits for a package or the end of the connection, for as long as a loaded machine may take.
inline int readSoon(Orlek::Network::SocketTcp& link, void* payload,
                    Orlek::Network::MsgHeader& header) {
    int id = link.readPackage(payload, header);
    for (int attempt = 0; attempt < 50000 && id == -1; ++attempt) {
        usleep(100);
        id = link.readPackage(payload, header);
    }
    return id;
}

class LinkTest : public testing::Test {
protected:
    void SetUp() override { connectLink(); }

    void TearDown() override {
        link.closeConnection();
        peer.close();
        listener.close();
        EXPECT_EQ(openFiles(), filesBefore);
    }

    void connectLink() {
        ASSERT_TRUE(link.createTcpClientSocketNonBlock(loopback, listener.port(), 5000));
        peer = listener.accepted();
    }

    /// Sends `bytes` to the link and waits until one receive gets them all.
    void arrive(const std::string& bytes) const {
        peer.send(bytes);
        int there = 0;
        for (int attempt = 0; there < static_cast<int>(bytes.size()); ++attempt) {
            ASSERT_LT(attempt, 50000) << "the bytes got lost";
            usleep(attempt > 0 ? 100 : 0);
            ioctl(static_cast<int>(link.sd()), FIONREAD, &there);
        }
    }

    int read() { return link.readPackage(payload.data(), header); }

    int readSoon() { return OrlekTest::readSoon(link, payload.data(), header); }

    std::string received() const { return {payload.data(), header.length}; }

    void write(std::uint32_t id, const std::string& text) {
        const auto length = static_cast<std::uint32_t>(text.size());
        EXPECT_EQ(link.writePackage(text.data(), {.id = id, .length = length}, length), 0);
    }

    std::ptrdiff_t filesBefore = openFiles();
    PlainPeer listener = PlainPeer::listening();
    PlainPeer peer;
    Orlek::Network::SocketTcp link;
    Orlek::Network::MsgHeader header;
    std::vector<char> payload = std::vector<char>(1048551);
};

}  // namespace OrlekTest
