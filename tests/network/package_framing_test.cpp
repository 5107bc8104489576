#include "network/PackageFraming.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

using Orlek::Detail::PackageFraming;
using Orlek::Network::MsgHeader;
using State = PackageFraming::State;

std::string package(std::uint32_t id, const std::string& payload) {
    MsgHeader header;
    header.id = id;
    header.length = static_cast<std::uint32_t>(payload.size());
    return std::string(reinterpret_cast<const char*>(&header), sizeof(header)) + payload;
}

void put(PackageFraming& framing, const std::string& bytes) {
    const auto room = framing.room();
    ASSERT_LE(bytes.size(), room.size());
    std::memcpy(room.data(), bytes.data(), bytes.size());
    framing.added(bytes.size());
}

std::string text(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(PackageFraming, FindsPackagesInAnyCuts) {
    std::mt19937 random(7);
    for (const std::size_t longestCut : {1U, 2U, 23U, 25U, 500U, 100000U}) {
        std::string stream;
        std::vector<std::string> sent;
        for (std::uint32_t id = 0; id < 100; ++id) {
            sent.emplace_back(random() % 4 == 0 ? 0 : random() % 300, char('a' + id % 26));
            stream += package(id, sent.back());
        }
        PackageFraming framing;
        std::uint32_t received = 0;
        for (std::size_t at = 0; at < stream.size();) {
            const std::string cut = stream.substr(at, 1 + random() % longestCut);
            at += cut.size();
            put(framing, cut);
            for (auto found = framing.next(); found.state != State::incomplete;
                 found = framing.next()) {
                ASSERT_EQ(found.state, State::package);
                ASSERT_EQ(found.header.id, received);
                ASSERT_EQ(text(found.payload), sent.at(received++));
            }
        }
        EXPECT_EQ(received, sent.size()) << longestCut;
        EXPECT_EQ(framing.room().size(), PackageFraming::capacity);
    }
}

TEST(PackageFraming, OffersAllTheRoomThereIs) {
    PackageFraming framing;
    const std::string rest = package(2, "unfinished").substr(0, 30);
    put(framing, package(1, std::string(1000, 'x')) + rest);
    EXPECT_EQ(framing.next().state, State::package);
    EXPECT_EQ(framing.next().state, State::incomplete);
    EXPECT_EQ(framing.room().size(), PackageFraming::capacity - rest.size());
    put(framing, package(2, "unfinished").substr(30));
    EXPECT_EQ(text(framing.next().payload), "unfinished");
}

TEST(PackageFraming, BoundsTheLength) {
    struct Row {
        std::uint32_t length;
        State state;
    };
    for (const Row& row : {Row{1048551, State::incomplete}, Row{1048552, State::tooLong},
                           Row{0xFFFFFFFF, State::tooLong}, Row{0xFFFFFFE8, State::tooLong}}) {
        PackageFraming framing;
        MsgHeader header;
        header.length = row.length;
        put(framing, std::string(reinterpret_cast<const char*>(&header), sizeof(header)));
        EXPECT_EQ(framing.next().state, row.state) << row.length;
    }
    PackageFraming framing;
    const std::string longest(1048551, 'l');
    put(framing, package(9, longest));
    EXPECT_EQ(text(framing.next().payload), longest);
}

TEST(PackageFraming, DropsEverythingAfterAWrongVersion) {
    PackageFraming framing;
    std::string wrong = package(2, "bad");
    wrong[4] = 4;
    put(framing, package(1, "good") + wrong + package(3, "lost"));
    EXPECT_EQ(framing.next().header.id, 1U);
    EXPECT_EQ(framing.next().state, State::wrongVersion);
    EXPECT_EQ(framing.next().state, State::incomplete);
    put(framing, package(4, "again"));
    EXPECT_EQ(framing.next().header.id, 4U);
}

}  // namespace
