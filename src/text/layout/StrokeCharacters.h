// A stroke character set in the form in which it is drawn: all points in a row, and for each
// character code the strokes that it takes from them.
#pragma once

#include <Orlek/Math/Vector3.h>
#include <Orlek/OpenGL/StrokeSet.h>

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace Orlek::Detail {

/// A polyline through consecutive points.
struct Stroke {
    std::size_t start;
    std::size_t count;
};

class StrokeCharacters {
public:
    static constexpr std::size_t most = 128;
    /// Far more than a set needs; the reading of one that never ends stops there.
    static constexpr std::size_t mostRecords = std::size_t{1} << 20;

    /// Reads the characters 0 to 127 of a set, which is not needed afterwards.
    explicit StrokeCharacters(const OpenGL::CHARSET_STRUCT& set);

    /// Whether a byte has a place in the line of text; those from 128 on have none.
    static bool has(char byte) { return static_cast<unsigned char>(byte) < most; }

    /// The strokes of a byte below 128.
    std::span<const Stroke> strokes(char byte) const;

    /// The points of these strokes, one stroke after the other.
    std::span<const Math::Vector3<float>> points(char byte) const;

    const std::vector<Math::Vector3<float>>& points() const { return mPoints; }
    float advance() const { return mAdvance; }

private:
    const OpenGL::CHARDEF_STRUCT* drawChar(const OpenGL::CHARDEF_STRUCT* records,
                                           std::size_t& left);

    std::vector<Math::Vector3<float>> mPoints;
    std::vector<Stroke> mStrokes;
    std::array<std::size_t, most + 1> mFirstStroke{};  // by code; the next entry is the end
    float mAdvance;
};

}  // namespace Orlek::Detail
