// Two processes exchange random packages for some minutes, with random delays, bursts and ends of
// connections; nothing may get lost, changed or out of order, no memory or descriptor be left.
// What the library prints about ended connections goes to the standard error stream.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "Partner.h"

namespace {

using OrlekTest::Partner;
using OrlekTest::Plan;
using OrlekTest::Shared;
using OrlekTest::Tally;

/// More than what the heap keeps from one connection to the next.
constexpr long memoryMarginKib = 8192;

bool parse(int argc, char** argv, Plan& plan) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        const unsigned long value = std::strtoul(argv[i + 1], nullptr, 10);
        if (option == "--seconds" && value > 0) {
            plan.duration = std::chrono::seconds(value);
        } else if (option == "--seed") {
            plan.seed = value;
        } else {
            return false;
        }
    }
    return argc % 2 == 1;
}

void print(std::FILE* out, const char* name, const Tally& tally) {
    std::fprintf(out,
                 "%-10s sent %" PRIu64 ", received %" PRIu64 " (%" PRIu64 " MiB), again %" PRIu64
                 "; connections: broken off %" PRIu64 ", closed %" PRIu64
                 ", ended by the other %" PRIu64 "; memory %ld KiB, later %ld KiB\n",
                 name, tally.sent, tally.received, tally.bytes >> 20, tally.again, tally.broken,
                 tally.closed, tally.ended, tally.memoryKib, tally.memoryLaterKib);
    if (tally.fault[0] != '\0') {
        std::fprintf(out, "%s: %s\n", name, tally.fault);
    }
}

/// Null when `mine` and `theirs` fit together.
const char* verdict(const Tally& mine, const Tally& theirs, const Plan& plan) {
    if (mine.fault[0] != '\0') {
        return "a partner found a fault";
    }
    if (mine.sent != theirs.received) {
        return "not all arrived that was sent";
    }
    if (mine.ended > theirs.broken + theirs.closed) {
        return "a connection ended by itself";
    }
    // A short run ends before the memory has settled.
    if (plan.duration >= std::chrono::seconds(60) &&
        mine.memoryLaterKib > mine.memoryKib + memoryMarginKib) {
        return "memory grows";
    }
    return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    Plan plan;
    if (!parse(argc, argv, plan)) {
        std::fprintf(stderr, "Usage: %s [--seconds N (600)] [--seed N (1)]\n", argv[0]);
        return 2;
    }
    std::FILE* out = fdopen(dup(STDOUT_FILENO), "w");
    dup2(STDERR_FILENO, STDOUT_FILENO);
    Orlek::Network::SocketTcpServer listener;
    void* memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    plan.port = OrlekTest::PlainPeer::listening().port();  // free again at once
    if (out == nullptr || memory == MAP_FAILED || !listener.init(plan.port)) {
        std::perror("cannot start");
        return 1;
    }
    auto* shared = new (memory) Shared;
    const pid_t child = fork();
    if (child < 0) {
        std::perror("fork");
        return 1;
    }
    if (child == 0) {
        listener.closeConnection();
        Partner(plan, nullptr, *shared).run();
        std::exit(0);
    }
    Partner(plan, &listener, *shared).run();
    listener.closeConnection();
    int status = 1;
    waitpid(child, &status, 0);
    const Tally& listening = shared->tally[0];
    const Tally& connecting = shared->tally[1];
    print(out, "listening", listening);
    print(out, "connecting", connecting);
    const char* fault = verdict(listening, connecting, plan);
    if (fault == nullptr) {
        fault = verdict(connecting, listening, plan);
    }
    if (fault == nullptr && status != 0) {
        fault = "the connecting process failed";
    }
    std::fprintf(out, "%s\n", fault == nullptr ? "Nothing lost, changed or out of order." : fault);
    std::fclose(out);
    return fault == nullptr ? 0 : 1;
}
