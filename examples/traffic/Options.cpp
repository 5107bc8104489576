// Registered with the library's command line, then turned into numbers and checked.
#include "Options.h"

#include <Orlek/Misc.h>
#include <Orlek/Network.h>

#include <stdexcept>

#include "OptionValues.h"

namespace Traffic {

namespace {

using namespace OrlekSupport;

void registerOptions() {
    auto& line = Orlek::Misc::CmdLine::instance();
    line.addParameter("--tcp", "port on which maps may connect; 0: none", "4611");
    line.addParameter("--udp", "port to which datagrams go; 0: none", "4612");
    line.addParameter("--udp-to", "address to which datagrams go, a broadcast address or a host",
                      "127.255.255.255");
    line.addParameter("--rate", "how often all positions are sent, times a second", "5");
    line.addParameter("--seconds", "end after so long; 0: when stopped", "0");
    line.addParameter("--pace", "time lapse: 1 as it is, 0 all stand still", "1");
    line.addParameter("--from", "begin so many seconds after the start of the route", "0");
    line.addParameter("--route", "route file of the own ship; the built-in route when empty", "");
    line.addParameter("--speed", "ground speed of the own ship, knots", "110");
    line.addParameter("--altitude", "altitude of the own ship, feet", "5500");
}

unsigned long addressOf(const std::string& host) {
    const unsigned long address = Orlek::Network::Network::getAddressFromName(host);
    if (address == 0) {
        throw std::runtime_error("--udp-to: '" + host + "' has no address");
    }
    return address;
}

Options collect() {
    Options options;
    options.tcpPort = numberOf("--tcp", 0, 65535);
    options.udpPort = numberOf("--udp", 0, 65535);
    if (options.tcpPort == 0 && options.udpPort == 0) {
        throw std::runtime_error("--tcp and --udp are both 0: nothing to send to");
    }
    options.udpToText = textOf("--udp-to");
    options.udpTo = addressOf(options.udpToText);
    options.rateHz = numberOf("--rate", 0.1, 50.0);
    options.seconds = numberOf("--seconds", 0.0, 1e6);
    options.pace = numberOf("--pace", 0.0, 100.0);
    options.fromS = numberOf("--from", 0.0, 1e6);
    options.route = textOf("--route");
    options.speedKt = numberOf("--speed", 10.0, 3000.0);
    options.altitudeFt = numberOf("--altitude", 2000.0, 50000.0);
    return options;
}

}  // namespace

std::optional<Options> readOptions(int argc, char** argv) {
    registerOptions();
    if (!parseArguments(argc, argv)) {
        return std::nullopt;
    }
    return collect();
}

}  // namespace Traffic
