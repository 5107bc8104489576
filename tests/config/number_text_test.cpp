// Numbers as text, held against a stream of the classic locale.
#include <gtest/gtest.h>

#include <limits>
#include <locale>
#include <sstream>

#include "config/NumberText.h"

namespace {

TEST(NumberText, WritesWhatAStreamOfTheClassicLocaleWrites) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double values[] = {0.0,      -0.0,      5.0,     5.06151234, 0.000123456789, 1e-5,
                             999999.4, 999999.5,  1e6,     1234567.0,  -1.5,           1e300,
                             5e-324,   -1.7e-308, 1.0 / 3, 100000.0,   infinity,       -infinity};
    for (const double value : values) {
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream << value;
        EXPECT_EQ(Orlek::Detail::numberText(value), stream.str());
    }
}

}  // namespace
