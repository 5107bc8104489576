// Any text split at any separators: the sections are those of a plain reading of the rule, and put
// together again they are the text.
// Input: the number of separators (up to 3), the first and the last section asked for (a byte each,
// signed; -128 and 127 stand for the smallest and the largest number), the separators, the text.
#include <Orlek/Misc/StringHelpers.h>

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzTarget.h"

namespace {

using Orlek::Misc::StringCount;
using Orlek::Misc::StringSection;
using Sections = std::vector<std::string>;

int number(std::uint8_t byte) {
    const int value = static_cast<std::int8_t>(byte);
    return value == -128  ? std::numeric_limits<int>::min()
           : value == 127 ? std::numeric_limits<int>::max()
                          : value;
}

/// Character by character: after a separator as many are passed over as there are separators, less
/// the one itself.
Sections split(std::string_view text, std::string_view separators) {
    Sections sections(1);
    std::size_t passOver = 0;
    for (const char c : text) {
        if (passOver > 0) {
            --passOver;
        } else if (separators.find(c) != std::string_view::npos) {
            sections.emplace_back();
            passOver = separators.size() - 1;
        } else {
            sections.back() += c;
        }
    }
    return sections;
}

std::string join(const Sections& sections, long long first, long long last) {
    const auto count = static_cast<long long>(sections.size());
    last = last < 0 ? last + count : last;
    first = std::max(first < 0 ? first + count : first, 0LL);
    last = std::max(last, first);
    std::string joined;
    for (long long i = first; i <= std::min(last, count - 1); ++i) {
        joined += (i > first ? "." : "") + sections[static_cast<std::size_t>(i)];
    }
    return joined;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) {
        return 0;
    }
    const int first = number(data[1]);
    const int last = number(data[2]);
    const std::string rest(reinterpret_cast<const char*>(data) + 3, size - 3);
    const std::size_t count = std::min<std::size_t>(data[0] % 4, rest.size());
    const std::string separators = rest.substr(0, count);
    const std::string text = rest.substr(count);

    const Sections sections = split(text, separators);
    require(StringCount(text, separators) + 1 == sections.size());
    require(StringSection(text, separators, first, last) == join(sections, first, last));
    require(StringSection(text, ".", 0, -1) == text);
    require(StringSection(text, "", first, first) == (first == 0 || first < 0 ? text : ""));
    return 0;
}
