#include "Console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace OrlekTiles {

namespace {

[[noreturn]] void failToWrite() {
    throw std::runtime_error(std::string("cannot write the results: ") + std::strerror(errno));
}

/// Bytes of the character that a text begins with; 0 for a control character and for what is no
/// UTF-8.
std::size_t printableLength(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) {
        return first < 0x20 || first == 0x7F ? 0 : 1;
    }
    const std::size_t length = first < 0xE0 ? 2 : (first < 0xF0 ? 3 : 4);
    if (first < 0xC2 || first > 0xF4 || text.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80) {
            return 0;
        }
    }
    return first == 0xC2 && byteAt(1) < 0xA0 ? 0 : length;
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

// A terminal takes the bytes of control characters above 0x7F for such, too.
std::string printable(const std::string& text) {
    std::string safe;
    for (std::size_t i = 0; i < text.size();) {
        if (const std::size_t length = printableLength(std::string_view(text).substr(i))) {
            safe.append(text, i, length);
            i += length;
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(text[i])));
            safe += escape;
            ++i;
        }
    }
    return safe;
}

}  // namespace OrlekTiles
