// Expands the drawings of StrokeTable.h into point records while the library is compiled.
#include <Orlek/OpenGL/StrokeSet.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "text/layout/BuiltInStrokeSet.h"
#include "text/layout/StrokeTable.h"

namespace Orlek::Detail {

namespace {

using OpenGL::CHARDEF_STRUCT;

// The lines of the grid: four steps make the width of a capital, six its height.
constexpr std::array gridColumns{0.0F, 2.231190F, 4.462380F, 6.693570F, 8.924760F, 11.155950F};
constexpr std::array gridRows{-4.564097F, -2.282048F, 0.0F,       2.282048F,  4.564097F,
                              6.846146F,  9.128194F,  11.410242F, 13.692291F, 15.974339F};
constexpr int lowestRow = -2;

constexpr std::array<CHARDEF_STRUCT, 5> box{
    {{0.0F, 0.0F, 1}, {8.9F, 0.0F, 1}, {8.9F, 20.0F, 1}, {0.0F, 20.0F, 1}, {0.0F, 0.0F, 3}}};

// Reads the points of a drawing one by one.
class Reader {
public:
    constexpr explicit Reader(std::string_view text) : mText(text) {}

    constexpr bool atEnd() const { return mText.empty(); }

    constexpr CHARDEF_STRUCT next() {
        const float x = onLines(gridColumns, quarters());
        require(take(","));
        const float y = onLines(gridRows, quarters() - 4 * lowestRow);
        if (atEnd()) {
            return {x, y, 3};
        }
        if (take(" | ")) {
            return {x, y, 2};
        }
        require(take(" "));
        return {x, y, 1};
    }

private:
    // What does not hold ends the compilation here.
    static constexpr void require(bool holds) {
        if (!holds) {
            throw "a drawing of a stroke character does not keep to its notation";
        }
    }

    constexpr bool take(std::string_view expected) {
        const bool found = mText.starts_with(expected);
        if (found) {
            mText.remove_prefix(expected.size());
        }
        return found;
    }

    // A coordinate in quarters of a step.
    constexpr int quarters() {
        const int sign = take("-") ? -1 : 1;
        require(!atEnd() && mText.front() >= '0' && mText.front() <= '9');
        const int whole = 4 * (mText.front() - '0');
        mText.remove_prefix(1);
        return sign * (whole + (take(".25") ? 1 : take(".5") ? 2 : take(".75") ? 3 : 0));
    }

    static constexpr float onLines(std::span<const float> lines, int position) {
        require(position >= 0 && position <= 4 * (static_cast<int>(lines.size()) - 1));
        const auto line = static_cast<std::size_t>(position / 4);
        const int quarter = position % 4;
        if (quarter == 0) {
            return lines[line];
        }
        return lines[line] + (lines[line + 1] - lines[line]) * static_cast<float>(quarter) / 4.0F;
    }

    std::string_view mText;
};

template <typename Visit>
constexpr void visitRecords(Visit visit) {
    for (const StrokeDrawing& drawing : strokeDrawings) {
        if (drawing.points == "box") {
            for (const CHARDEF_STRUCT& record : box) {
                visit(record);
            }
            continue;
        }
        for (Reader reader(drawing.points); !reader.atEnd();) {
            visit(reader.next());
        }
    }
}

consteval std::size_t countRecords() {
    std::size_t count = 0;
    visitRecords([&count](const CHARDEF_STRUCT&) { ++count; });
    return count;
}

consteval auto expand() {
    std::array<CHARDEF_STRUCT, countRecords() + 1> records{};  // the last, all zero, ends the table
    std::size_t next = 0;
    visitRecords([&](const CHARDEF_STRUCT& record) { records[next++] = record; });
    return records;
}

consteval bool inOrder() {
    for (std::size_t code = 0; code < strokeDrawings.size(); ++code) {
        if (strokeDrawings[code].code != static_cast<int>(code)) {
            return false;
        }
    }
    return true;
}
static_assert(inOrder());

constexpr auto records = expand();

// The two leading values and the measures identify this design; nothing reads them.
constexpr OpenGL::CHARSET_STRUCT set{{12884, 0},
                                     static_cast<std::uint32_t>(strokeDrawings.size()),
                                     {20.538441F, 8.924760F, 0.0F, 4.564100F, 4.195400F, 3.0F},
                                     13.120160F,
                                     records.data()};

}  // namespace

const OpenGL::CHARSET_STRUCT& builtInStrokeSet() {
    return set;
}

}  // namespace Orlek::Detail
