// Packages over TCP on loopback, beside bare calls that send one message each and receive into a
// buffer of 1 MiB with a moving offset, and beside Asio, ZeroMQ and nng where they are installed.
//   exchange/BYTES  one package written, one read, BYTES of payload
//   backlog/BYTES   a full buffer of such packages handed out after its first, which fetched them
//   backlog64K/64   the same with a sixteenth of it: a package costs what it costs in the full one
//   poll            500 connections on which nothing waits, asked in turn
#include <benchmark/benchmark.h>

#include <ctime>
#include <memory>
#include <optional>
#include <string>

#include "TcpLinks.h"
#include "TcpPeers.h"

namespace {

using namespace OrlekBench;

template <typename Link>
void exchange(benchmark::State& state, std::uint32_t length) {
    Link link;
    const Package package(length);
    Received received;
    // The system widens the window of a connection with the first packages.
    for (int i = 0; i < 100; ++i) {
        link.send(package);
        link.receive(received);
    }
    for (auto _ : state) {
        link.send(package);
        link.receive(received);
        benchmark::DoNotOptimize(received.payload.data());
        benchmark::ClobberMemory();
    }
    require(received.header.length == length, "length");
}

/// Of this thread, in seconds: handing out never waits.
double processorTime() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <typename Link>
void backlog(benchmark::State& state, std::uint32_t length, std::size_t size) {
    Link link(1 << 22);
    const Package package(length);
    const std::size_t count = size / package.bytes.size();
    std::vector<std::byte> stream;
    for (std::size_t i = 0; i < count; ++i) {
        stream.insert(stream.end(), package.bytes.begin(), package.bytes.end());
    }
    Received received;
    for (auto _ : state) {
        link.send(stream);
        link.receive(received);
        const double start = processorTime();
        for (std::size_t i = 1; i < count; ++i) {
            link.receive(received);
            benchmark::DoNotOptimize(received.payload.data());
            benchmark::ClobberMemory();
        }
        state.SetIterationTime(processorTime() - start);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count - 1));
}

struct Crowd {
    explicit Crowd(std::size_t count) : connections(count), links(count) {
        for (std::size_t i = 0; i < count; ++i) {
            links[i].setDescriptor(
                static_cast<std::uint64_t>(connections[i].receiver.descriptor()));
        }
    }
    std::vector<Connection> connections;
    std::vector<Orlek::Network::SocketTcp> links;
    Received received;
};

void pollBare(benchmark::State& state, Crowd& crowd) {
    for (auto _ : state) {
        for (const Connection& connection : crowd.connections) {
            const ssize_t count =
                recv(connection.receiver.descriptor(), crowd.received.payload.data(),
                     receiveCapacity, MSG_DONTWAIT);
            require(count == -1 && errno == EAGAIN, "recv");
        }
    }
    state.SetItemsProcessed(state.iterations() * std::ssize(crowd.connections));
}

void pollOrlek(benchmark::State& state, Crowd& crowd) {
    for (auto _ : state) {
        for (Orlek::Network::SocketTcp& link : crowd.links) {
            require(link.readPackage(crowd.received.payload.data(), crowd.received.header) == -1,
                    "readPackage");
        }
    }
    state.SetItemsProcessed(state.iterations() * std::ssize(crowd.links));
}

template <typename Link>
void addExchange(const char* name, std::uint32_t length) {
    benchmark::RegisterBenchmark(("exchange/" + std::to_string(length) + "/" + name).c_str(),
                                 exchange<Link>, length)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
}

void addExchanges(std::uint32_t length) {
    addExchange<BareLink>("bare", length);
    addExchange<OrlekLink>("orlek", length);
#ifdef ORLEK_HAVE_ASIO
    addExchange<AsioLink>("asio", length);
#endif
#ifdef ORLEK_HAVE_ZMQ
    addExchange<ZeroMqLink>("zeromq", length);
#endif
#ifdef ORLEK_HAVE_NNG
    addExchange<NngLink>("nng", length);
#endif
}

void addBacklogs(const std::string& name, std::uint32_t length, std::size_t size) {
    const auto add = [&](const char* who, auto function) {
        benchmark::RegisterBenchmark((name + "/" + std::to_string(length) + "/" + who).c_str(),
                                     function, length, size)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    add("bare", backlog<BareLink>);
    add("orlek", backlog<OrlekLink>);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (const std::uint32_t length : {0U, 64U, 1024U, 65536U}) {
        addExchanges(length);
    }
    for (const std::uint32_t length : {0U, 8U, 64U, 1024U, 16384U}) {
        addBacklogs("backlog", length, receiveCapacity);
    }
    addBacklogs("backlog64K", 64, 65536);
    Crowd crowd(500);
    const auto addPoll = [&](const char* name, auto function) {
        benchmark::RegisterBenchmark(name, function, std::ref(crowd))
            ->Unit(benchmark::kMicrosecond);
    };
    addPoll("poll/bare", pollBare);
    addPoll("poll/orlek", pollOrlek);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
