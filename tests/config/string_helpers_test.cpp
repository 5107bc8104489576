// Splitting a text at separator characters.
#include <Orlek/Misc/StringHelpers.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

using Orlek::Misc::StringCount;
using Orlek::Misc::StringSection;

TEST(StringHelpers, CountAndSections) {
    const struct {
        std::string text, separators;
        unsigned int count;
        int first, last;
        std::string section;
    } rows[] = {
        {"a.b.c", ".", 2, 0, 0, "a"},
        {"a.b.c", ".", 2, -1, -1, "c"},
        {"a.b.c", ".", 2, -2, 7, "b.c"},
        {"a.b.c", ".", 2, 2, 0, "c"},  // last raised to first
        {"a.b.c", ".", 2, 5, 5, ""},
        {"a.b.c", ".", 2, INT_MIN, INT_MAX, "a.b.c"},
        {"a/b/c", "/", 2, 0, -1, "a.b.c"},  // joined by a dot whatever the separator
        {"a..b", ".", 2, 0, -1, "a..b"},
        {".", ".", 1, -1, -1, ""},
        {"abc", ".", 0, 0, 0, "abc"},
        {"a.b", "", 0, 0, 0, "a.b"},
        {"ab;cd,ef", ";,", 2, 0, -1, "ab.d.f"},  // one more character is passed over
        {"x;", ";,", 1, 0, -1, "x."},            // the text ends within what is passed over
        {"x;,;y", ";,", 2, 0, -1, "x.."},
        {std::string("a\0b", 3), std::string("\0", 1), 1, 1, 1, "b"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(StringCount(row.text, row.separators), row.count) << row.text;
        EXPECT_EQ(StringSection(row.text, row.separators, row.first, row.last), row.section)
            << row.text << " " << row.first << " to " << row.last;
    }
}

}  // namespace
