// A program that runs beside the test and is ended with it.
#pragma once

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace OrlekTest {

class Process {
public:
    /// @param arguments the program's path, then what it gets
    /// @param output file that takes its standard output and error stream
    Process(std::vector<std::string> arguments, const std::string& output) : mOutput(output) {
        std::vector<char*> words;
        for (std::string& argument : arguments) {
            words.push_back(argument.data());
        }
        words.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
        const int error = posix_spawn(&mId, words[0], &actions, nullptr, words.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (error != 0) {
            throw std::runtime_error("cannot start " + arguments[0]);
        }
    }
    ~Process() { stop(SIGKILL); }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Sends a signal and waits for the end. @return the exit status, -1 when it did not exit.
    int stop(int signal) {
        if (mId <= 0) {
            return -1;
        }
        kill(mId, signal);
        return wait();
    }

    /// Waits for the end. @return the exit status, -1 when it did not exit.
    int wait() {
        int status = 0;
        while (waitpid(mId, &status, 0) < 0 && errno == EINTR) {
        }
        mId = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// What it has written.
    std::string output() const {
        std::ifstream file(mOutput);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Waits until a whole line with this text has been written behind the lines returned so far,
    /// two minutes at most.
    /// @return the line; empty when none came
    std::string waitForLine(const std::string& text) {
        using namespace std::chrono;
        for (const auto end = steady_clock::now() + minutes(2); steady_clock::now() < end;
             std::this_thread::sleep_for(milliseconds(10))) {
            const std::string all = output();
            const std::size_t at = all.find(text, mRead);
            const std::size_t stop = at == std::string::npos ? at : all.find('\n', at);
            if (stop != std::string::npos) {
                const std::size_t start = at == 0 ? at : all.rfind('\n', at) + 1;
                mRead = stop;
                return all.substr(start, stop - start);
            }
        }
        return {};
    }

private:
    pid_t mId = -1;
    std::string mOutput;
    std::size_t mRead = 0;
};

}  // namespace OrlekTest
