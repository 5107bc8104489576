#include "text/layout/StrokeCharacters.h"

#include <algorithm>

namespace Orlek::Detail {

namespace {

enum RecordType { pointOfStroke = 1, endOfStroke = 2, endOfCharacter = 3 };

}  // namespace

StrokeCharacters::StrokeCharacters(const OpenGL::CHARSET_STRUCT& set) : mAdvance(set.advance) {
    const std::size_t count = set.records == nullptr ? 0 : std::min<std::size_t>(set.count, most);
    const OpenGL::CHARDEF_STRUCT* records = set.records;
    std::size_t left = mostRecords;
    for (std::size_t code = 0; code < most; ++code) {
        mFirstStroke[code] = mStrokes.size();
        if (code < count) {
            records = drawChar(records, left);
        }
    }
    mFirstStroke[most] = mStrokes.size();
}

const OpenGL::CHARDEF_STRUCT* StrokeCharacters::drawChar(const OpenGL::CHARDEF_STRUCT* records,
                                                         std::size_t& left) {
    std::size_t start = mPoints.size();
    for (; left > 0; --left, ++records) {
        if (records->type < pointOfStroke || records->type > endOfCharacter) {
            continue;
        }
        mPoints.emplace_back(records->x, records->y, 0.0F);
        if (records->type != pointOfStroke) {
            mStrokes.push_back({start, mPoints.size() - start});
            start = mPoints.size();
        }
        if (records->type == endOfCharacter) {
            --left;
            return records + 1;
        }
    }
    return records;
}

std::span<const Stroke> StrokeCharacters::strokes(char byte) const {
    const std::size_t code = static_cast<unsigned char>(byte);
    return std::span(mStrokes).subspan(mFirstStroke[code],
                                       mFirstStroke[code + 1] - mFirstStroke[code]);
}

std::span<const Math::Vector3<float>> StrokeCharacters::points(char byte) const {
    const std::span<const Stroke> taken = strokes(byte);
    if (taken.empty()) {
        return {};
    }
    const std::size_t start = taken.front().start;
    return std::span(mPoints).subspan(start, taken.back().start + taken.back().count - start);
}

}  // namespace Orlek::Detail
