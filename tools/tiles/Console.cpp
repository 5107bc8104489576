#include "Console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace OrlekTiles {

namespace {

[[noreturn]] void failToWrite() {
    throw std::runtime_error(std::string("cannot write the results: ") + std::strerror(errno));
}

}  // namespace

Console::Console() {
    // Above the three standard streams, of which some may be closed.
    const int results = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    mResults = results < 0 ? nullptr : fdopen(results, "w");
    if (mResults == nullptr) {
        failToWrite();
    }
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0) {
        throw std::runtime_error(std::string("/dev/null: ") + std::strerror(errno));
    }
    close(nowhere);
}

Console::~Console() {
    std::fclose(mResults);
}

void Console::showLibraryLines() {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

void Console::print(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), mResults);
}

void Console::printFields(std::initializer_list<std::string> fields) {
    std::string line;
    for (const std::string& field : fields) {
        line.append(printable(field)).push_back('\t');
    }
    line.back() = '\n';
    print(line);
}

void Console::finish() {
    if (std::fflush(mResults) != 0 || std::ferror(mResults) != 0) {
        failToWrite();
    }
}

void Console::note(const std::string& text) {
    std::fprintf(stderr, "orlek-tiles: %s\n", printable(text).c_str());
}

std::string printable(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02X", byte);
            safe += escape;
        } else {
            safe += c;
        }
    }
    return safe;
}

}  // namespace OrlekTiles
