// Runs a test in a child process with a network of its own, where it may set up interfaces and
// listen on any port: as root, or, where the system grants them, in a user namespace.
#pragma once

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>

namespace OrlekTest {

/// Runs a shell command and returns what it printed; throws when it fails.
inline std::string shell(const std::string& command) {
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("cannot run " + command);
    }
    std::string text;
    std::array<char, 4096> piece{};
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe)) {
        text.append(piece.data(), count);
    }
    if (pclose(pipe) != 0) {
        throw std::runtime_error("failed: " + command);
    }
    return text;
}

/// Leaves the network of the process for an empty one. False, with errno set, when refused.
inline bool enterOwnNetwork() {
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(CLONE_NEWNET) == 0) {
        return true;
    }
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) {
        return false;
    }
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    return static_cast<bool>(std::ofstream("/proc/self/uid_map")
                             << "0 " << user << " 1" << std::flush);
}

/// Thrown by a test that needs more than the system grants.
struct Refused {};

/// Runs `test` in a child with a network of its own in which loopback is up. A failure there fails
/// the calling test.
/// @return nothing when it ran, otherwise why it could not.
template <typename Function>
std::string inOwnNetwork(Function&& test) {
    constexpr int refused = 100;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        int status = refused;
        try {
            if (enterOwnNetwork()) {
                shell("ip link set lo up");
                test();
                status = testing::Test::HasFailure() ? 1 : 0;
            }
        } catch (const Refused&) {
            status = refused;
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            status = 1;
        }
        std::fflush(nullptr);
        _exit(status);
    }
    int status = -1;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == refused) {
        return "namespaces are refused here";
    }
    EXPECT_EQ(status, 0) << "a check in the child failed, see above";
    return {};
}

/// The same, but skips the calling test where it cannot run, and says what is left out.
template <typename Function>
void inOwnNetworkOrSkip(Function&& test, const char* leftOut) {
    if (const std::string refusal = inOwnNetwork(test); !refusal.empty()) {
        GTEST_SKIP() << refusal << ": " << leftOut;
    }
}

}  // namespace OrlekTest
