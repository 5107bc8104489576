// Runs a function and returns what it wrote to the standard output or the standard error stream.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrlekTest {

template <typename Function>
std::string captureStream(std::FILE* stream, Function&& function) {
    std::fflush(stream);
    std::FILE* sink = std::tmpfile();
    const int saved = dup(fileno(stream));
    if (sink == nullptr || saved < 0 || dup2(fileno(sink), fileno(stream)) < 0) {
        throw std::runtime_error("cannot redirect the stream");
    }
    std::forward<Function>(function)();
    std::fflush(stream);
    dup2(saved, fileno(stream));
    close(saved);
    std::string text;
    std::rewind(sink);
    for (int c = std::fgetc(sink); c != EOF; c = std::fgetc(sink)) {
        text.push_back(static_cast<char>(c));
    }
    std::fclose(sink);
    return text;
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
