// orlek-traffic: sends the positions of an own ship and a dozen targets, for the live moving map.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <exception>
#include <thread>

#include "AirTraffic.h"
#include "Options.h"
#include "RouteFile.h"
#include "Sender.h"
#include "support/Signals.h"

namespace {

using namespace Traffic;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

volatile std::sig_atomic_t stopped = 0;

void stop(int /*signal*/) {
    stopped = 1;
}

// A sleep is not ended by a signal, so it is a short one.
void sleepUntil(Clock::time_point moment) {
    while (stopped == 0 && Clock::now() < moment) {
        std::this_thread::sleep_until(
            std::min(moment, Clock::now() + std::chrono::milliseconds(50)));
    }
}

void announce(const Options& options) {
    if (options.tcpPort != 0) {
        std::printf("TCP: tcp://127.0.0.1:%d\n", options.tcpPort);
    }
    if (options.udpPort != 0) {
        std::printf("UDP: udp://:%d, sent to %s\n", options.udpPort, options.udpToText.c_str());
    }
    std::printf("%g times a second; Ctrl+C ends\n", options.rateHz);
    std::fflush(stdout);
}

void run(const Options& options) {
    const AirTraffic traffic(
        options.route.empty() ? MovingMap::defaultRoute() : MovingMap::readRouteFile(options.route),
        options.speedKt, options.altitudeFt);
    Sender sender(options);
    announce(options);
    const Clock::time_point start = Clock::now();
    const Seconds period(1.0 / options.rateHz);
    while (stopped == 0) {
        const Seconds elapsed = Clock::now() - start;
        if (options.seconds > 0.0 && elapsed.count() >= options.seconds) {
            break;
        }
        sender.serve();
        for (const auto& message :
             traffic.messagesAt(options.fromS + options.pace * elapsed.count())) {
            sender.send(message);
        }
        sleepUntil(start + std::chrono::duration_cast<Clock::duration>(elapsed + period));
    }
}

}  // namespace

int main(int argc, char** argv) {
    OrlekSupport::handleUnlessIgnored(SIGINT, stop);
    OrlekSupport::handleUnlessIgnored(SIGTERM, stop);
    try {
        if (const auto options = readOptions(argc, argv)) {
            run(*options);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-traffic: %s\n", error.what());
        return 1;
    }
}
