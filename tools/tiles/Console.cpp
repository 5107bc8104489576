#include "Console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <stdexcept>
#include <string_view>

#include "config/Utf8Character.h"

namespace OrlekTiles {

namespace {

[[noreturn]] void failToWrite() {
    throw std::runtime_error(std::string("cannot write the results: ") + std::strerror(errno));
}

/// C0 and C1, of which terminals take the second for such, too (ECMA-48).
bool isControl(char32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
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
    for (std::size_t at = 0; at < text.size();) {
        const auto [code, length] =
            Orlek::Detail::firstUtf8Character(std::string_view(text).substr(at));
        if (length > 0 && !isControl(code)) {
            safe.append(text, at, length);
            at += length;
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\x%02X",
                          static_cast<unsigned>(static_cast<unsigned char>(text[at])));
            safe += escape;
            ++at;
        }
    }
    return safe;
}

}  // namespace OrlekTiles
