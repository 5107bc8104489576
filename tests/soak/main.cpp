// The moving map for ten minutes: 60 pictures a second, two feeds from another process whose
// connections end each minute, tiles that change, settings that are written. Memory, descriptors,
// GL names and the times of the frames must stay within their bounds, and no package may be
// missing. What the library prints goes to the standard error stream.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#include "MapRun.h"
#include "network/PlainPeer.h"

namespace {

using namespace std::chrono_literals;
using OrlekTest::Plan;
using OrlekTest::Sent;

bool parse(int argc, char** argv, Plan& plan) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        const int value = std::atoi(argv[i + 1]);
        if (option == "--seconds" && value > 0) {
            plan.duration = std::chrono::seconds(value);
        } else if (option == "--width" && value >= 320 && value <= 4096) {
            plan.width = value;
        } else if (option == "--height" && value >= 240 && value <= 4096) {
            plan.height = value;
        } else if (option == "--out") {
            plan.picture = argv[i + 1];
        } else {
            return false;
        }
    }
    plan.period = std::clamp<std::chrono::nanoseconds>(plan.duration / 10, 2500ms, 60s);
    return argc % 2 == 1;
}

bool run(const Plan& plan, Sent& sent, std::FILE* out) {
    OrlekTest::MapRun map(plan);
    std::fprintf(out, "%d x %d pixels, %lld s\n", plan.width, plan.height,
                 static_cast<long long>(plan.duration.count()));
    std::fflush(out);
    return OrlekTest::report(out, map.run(sent), plan.duration >= 300s);
}

}  // namespace

int main(int argc, char** argv) {
    Plan plan;
    if (!parse(argc, argv, plan)) {
        std::fprintf(stderr,
                     "Usage: %s [--seconds N (600)] [--width N (480)] [--height N (320)] "
                     "[--out LAST-PICTURE.png]\n",
                     argv[0]);
        return 2;
    }
    std::FILE* out = fdopen(dup(STDOUT_FILENO), "w");
    dup2(STDERR_FILENO, STDOUT_FILENO);
    Orlek::Network::SocketTcpServer server;
    void* memory =
        mmap(nullptr, sizeof(Sent), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    plan.port = OrlekTest::PlainPeer::listening().port();  // free again at once
    if (out == nullptr || memory == MAP_FAILED || !server.init(plan.port)) {
        std::perror("cannot start");
        return 1;
    }
    auto* sent = new (memory) Sent;
    const pid_t sender = fork();
    if (sender < 0) {
        std::perror("fork");
        return 1;
    }
    if (sender == 0) {
        OrlekTest::sendFeeds(server, plan.port, plan.period, *sent);
        server.closeConnection();
        std::exit(0);
    }
    server.closeConnection();
    bool holds = false;
    try {
        holds = run(plan, *sent, out);
    } catch (const std::exception& fault) {
        std::fprintf(out, "%s\n", fault.what());
    }
    sent->stop = true;
    int status = 1;
    waitpid(sender, &status, 0);
    holds = holds && status == 0;
    std::fprintf(out, "%s\n",
                 holds ? "All figures are within their bounds." : "The soak has failed.");
    std::fclose(out);
    return holds ? 0 : 1;
}
