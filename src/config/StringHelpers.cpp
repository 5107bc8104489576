// Splitting a text at separator characters: one scan serves the count and the sections.
#include <Orlek/Misc/StringHelpers.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace Orlek::Misc {
namespace {

// Calls use(section) for each section but the last, and returns the last one.
template <typename Use>
std::string_view forEachClosedSection(std::string_view text, std::string_view separators, Use use) {
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t found = text.find_first_of(separators, start);
        if (found == std::string_view::npos)
            break;
        use(text.substr(start, found - start));
        start = found + separators.size();
    }
    return text.substr(std::min(start, text.size()));
}

}  // namespace

unsigned int StringCount(const std::string& text, const std::string& separators) {
    unsigned int count = 0;
    forEachClosedSection(text, separators, [&](std::string_view) { ++count; });
    return count;
}

std::string StringSection(const std::string& text, const std::string& separators, int first,
                          int last) {
    const std::int64_t count = std::int64_t{StringCount(text, separators)} + 1;
    const std::int64_t begin = std::max<std::int64_t>(0, first < 0 ? first + count : first);
    const std::int64_t end = std::max(begin, last < 0 ? last + count : last);

    std::string joined;
    std::int64_t index = 0;
    const auto take = [&](std::string_view section) {
        if (index >= begin && index <= end) {
            if (index > begin)
                joined += '.';
            joined += section;
        }
        ++index;
    };
    take(forEachClosedSection(text, separators, take));
    return joined;
}

}  // namespace Orlek::Misc
