// Everything that a typing error could break is checked here, once for all files.
#include "TextLines.h"

#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace MovingMap {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// The fonts of the map have a character for each byte. Of two bytes in UTF-8 (RFC 3629) only those
// that begin with 0xC2 and 0xC3 are in Latin-1; its first 32 are controls.
std::string latin1(std::string_view utf8) {
    std::string letters;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        auto code = static_cast<unsigned char>(utf8[i]);
        if ((code == 0xC2 || code == 0xC3) && i + 1 < utf8.size() && isContinuation(utf8[i + 1])) {
            const auto low = static_cast<unsigned char>(utf8[++i]) & 0x3FU;
            code = static_cast<unsigned char>((code & 0x03U) << 6U | low);
        } else if (code > 0x7E) {
            throw std::runtime_error("'" + std::string(utf8) +
                                     "' has letters other than Latin-1, or is no UTF-8");
        }
        if (code < 0x20 || (code >= 0x7F && code < 0xA0)) {
            throw std::runtime_error("'" + std::string(utf8) + "' has control characters");
        }
        letters.push_back(static_cast<char>(code));
    }
    return letters;
}

}  // namespace

std::string inALine(std::string text) {
    constexpr std::size_t longestShown = 200;
    if (text.size() > longestShown) {
        text.replace(longestShown, std::string::npos, "...");
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool ofTwo =
            byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        if (byte < 0x20 || byte == 0x7F || ofTwo) {
            text[i] = '?';
        }
    }
    return text;
}

Fields fieldsOf(std::string_view line) {
    Fields fields;
    for (;;) {
        const std::size_t comma = line.find(',');
        fields.push_back(trimmed(line.substr(0, comma)));
        if (comma == std::string_view::npos) {
            return fields;
        }
        line.remove_prefix(comma + 1);
    }
}

std::runtime_error errorInLine(const std::string& source, int number, const std::string& reason) {
    return std::runtime_error(source + ":" + std::to_string(number) + ": " + inALine(reason));
}

void forEachLine(std::istream& text, const std::string& source,
                 const std::function<void(const Fields&, int)>& line) {
    std::string content;
    for (int number = 1; std::getline(text, content); ++number) {
        if (number == 1 && content.starts_with("\xEF\xBB\xBF")) {
            content.erase(0, 3);  // the mark with which some editors begin a file in UTF-8
        }
        const std::string_view used =
            trimmed(std::string_view(content).substr(0, content.find('#')));
        if (used.empty()) {
            continue;
        }
        try {
            line(fieldsOf(used), number);
        } catch (const std::runtime_error& error) {
            throw errorInLine(source, number, error.what());
        }
    }
}

std::string readSmallFile(const std::string& path, const std::string& kind) {
    constexpr std::uintmax_t largestFile = 1 << 20;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) ||
        std::filesystem::file_size(path, error) > largestFile) {
        throw std::runtime_error("no " + kind + " file of at most a megabyte: " + path);
    }
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("cannot read the " + kind + " file " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

double numberField(std::string_view text, const char* what, double low, double high) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stopped != end || !(value >= low && value <= high)) {
        std::ostringstream message;
        message << what << " '" << text << "' is no number from " << low << " to " << high;
        throw std::runtime_error(message.str());
    }
    return value;
}

Position positionFields(std::string_view latitude, std::string_view longitude) {
    return {numberField(latitude, "latitude", -farthestLat, farthestLat),
            numberField(longitude, "longitude", -180.0, 180.0)};
}

std::string textField(std::string_view text, const char* what, std::size_t longest) {
    std::string letters = latin1(text);
    if (letters.empty() || letters.size() > longest) {
        throw std::runtime_error(std::string(what) + " has 1 to " + std::to_string(longest) +
                                 " characters");
    }
    return letters;
}

}  // namespace MovingMap
