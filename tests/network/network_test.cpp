#include <Orlek/Network/Network.h>
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <map>
#include <regex>

#include "support/Capture.h"
#include "support/OpenFiles.h"
#include "support/OwnNetwork.h"

namespace {

using namespace OrlekTest;
using Hosts = Orlek::Network::Network;

TEST(NetworkNames, GivesTheAddressInHostOrder) {
    EXPECT_EQ(Hosts::getAddressFromName("127.0.0.1"), 0x7F000001U);
    EXPECT_EQ(Hosts::getAddressFromName("192.168.1.254"), 0xC0A801FEU);
    EXPECT_EQ(Hosts::getAddressFromName("localhost") >> 24U, 127U);
    // Known to the system, but without an IPv4 address: no message.
    EXPECT_EQ(captureStderr([] {
                  EXPECT_EQ(Hosts::getAddressFromName("::1"), 0U);
                  EXPECT_EQ(Hosts::getAddressFromName("0.0.0.0"), 0U);
              }),
              "");
}

TEST(NetworkNames, TellsWhyANameIsUnknown) {
    for (const std::string& name :
         {std::string(), std::string("256.1.1.1.1."), std::string("a b"), std::string(300, 'x'),
          std::string("127.0.0.1\0x", 11), std::string("no-such-host.invalid.")}) {
        const std::string text =
            captureStderr([&] { EXPECT_EQ(Hosts::getAddressFromName(name), 0U) << name; });
        EXPECT_TRUE(std::regex_match(text, std::regex("getaddrinfo: [A-Z][A-Za-z ]+\n"))) << text;
    }
}

TEST(NetworkNames, WritesAddressesAsText) {
    EXPECT_EQ(Hosts::getAddressString(0xC0A80001), "192.168.0.1");
    EXPECT_EQ(Hosts::getAddressString(0), "0.0.0.0");
    EXPECT_EQ(Hosts::getAddressString(0xFFFFFFFF), "255.255.255.255");
    EXPECT_EQ(Hosts::getAddressString(0x57F000001), "127.0.0.1");
}

/// Address and broadcast address by name.
using AdapterMap = std::map<std::string, std::pair<std::uint32_t, std::uint32_t>>;

// The first IPv4 address of each interface but loopback, as another program tells it.
AdapterMap adaptersOfIp() {
    const std::regex row(R"re("ifname":"([^"]+)"[^{]*"addr_info":\[\{"family":"inet",)re"
                         R"re("local":"([0-9.]+)","prefixlen":[0-9]+,"broadcast":"([0-9.]+)")re");
    const std::string text = shell("ip -j -4 addr");
    AdapterMap adapters;
    for (std::sregex_iterator match(text.begin(), text.end(), row), end; match != end; ++match) {
        const auto address = [&](std::size_t group) {
            return ntohl(inet_addr(match->str(group).c_str()));
        };
        adapters[match->str(1)] = {address(2), address(3)};
    }
    return adapters;
}

AdapterMap adaptersOfLibrary() {
    AdapterMap adapters;
    for (const Hosts::Adapter& adapter : Hosts::getNetworkAdapters()) {
        EXPECT_TRUE(
            adapters.try_emplace(adapter.name, adapter.address, adapter.broadcastAddress).second)
            << adapter.name << " is listed twice";
        EXPECT_EQ(adapter.reserved, 0U);
    }
    return adapters;
}

TEST(NetworkAdapters, AreThoseTheSystemShows) {
    const auto compare = [] {
        EXPECT_TRUE(adaptersOfLibrary().empty()) << "only loopback is there";
        shell("ip link add left type veth peer name right");
        shell("ip addr add 10.1.2.3/20 brd + dev left");
        shell("ip addr add 10.9.9.9/24 brd + dev left label left:1");
        shell("ip addr add 192.168.7.9/25 brd + dev right");
        const AdapterMap expected = adaptersOfIp();
        ASSERT_EQ(expected.size(), 2U);
        EXPECT_EQ(adaptersOfLibrary(), expected);
        EXPECT_EQ(expected.at("left"), std::pair(0x0A010203U, 0x0A010FFFU));
    };
    inOwnNetworkOrSkip(compare, "the adapters of a network of its own are left out");
}

// Without a descriptor the system cannot be asked.
TEST(NetworkAdapters, ReportsWhenTheSystemDoesNotTell) {
    const std::string text = captureStdout([] {
        EXPECT_TRUE(withDescriptors(0, [] { EXPECT_TRUE(Hosts::getNetworkAdapters().empty()); }));
    });
    EXPECT_EQ(text, "GetAdaptersInfo failed with error: 24\n");
}

}  // namespace
