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

}  // namespace

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
    return std::runtime_error(source + ":" + std::to_string(number) + ": " + reason);
}

void forEachLine(std::istream& text, const std::string& source,
                 const std::function<void(const Fields&, int)>& line) {
    std::string content;
    for (int number = 1; std::getline(text, content); ++number) {
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
    return {numberField(latitude, "latitude", -89.0, 89.0),
            numberField(longitude, "longitude", -180.0, 180.0)};
}

std::string textField(std::string_view text, const char* what, std::size_t longest) {
    if (text.empty() || text.size() > longest) {
        throw std::runtime_error(std::string(what) + " has 1 to " + std::to_string(longest) +
                                 " characters");
    }
    return std::string(text);
}

}  // namespace MovingMap
