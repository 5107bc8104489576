// Runs a function and returns what it wrote to the standard output or the standard error stream.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrlekTest {

/// Leads a stream into a file for the length of a scope.
class Redirection {
public:
    explicit Redirection(std::FILE* stream) : mStream(stream), mSaved(dup(fileno(stream))) {
        std::fflush(stream);
        if (mSink == nullptr || mSaved < 0 || dup2(fileno(mSink), fileno(stream)) < 0) {
            throw std::runtime_error("cannot redirect the stream");
        }
    }
    ~Redirection() {
        std::fflush(mStream);
        dup2(mSaved, fileno(mStream));
        close(mSaved);
        std::fclose(mSink);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

    std::string text() const {
        std::fflush(mStream);
        std::string text;
        std::rewind(mSink);
        for (int c = std::fgetc(mSink); c != EOF; c = std::fgetc(mSink)) {
            text.push_back(static_cast<char>(c));
        }
        return text;
    }

private:
    std::FILE* mStream;
    int mSaved;
    std::FILE* mSink = std::tmpfile();
};

template <typename Function>
std::string captureStream(std::FILE* stream, Function&& function) {
    const Redirection redirection(stream);
    std::forward<Function>(function)();
    return redirection.text();
}

template <typename Function>
std::string captureStdout(Function&& function) {
    return captureStream(stdout, std::forward<Function>(function));
}

template <typename Function>
std::string captureStderr(Function&& function) {
    return captureStream(stderr, std::forward<Function>(function));
}

}  // namespace OrlekTest
