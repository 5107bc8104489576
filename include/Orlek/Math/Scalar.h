#pragma once

/// @file
/// Wrapping, clamping and linear interpolation of numbers. All functions may be called from any
/// thread.

#include <cstdint>
#include <limits>

namespace Orlek::Math {

/// Wraps a circular quantity, such as an angle, into a range.
///
/// Whole ranges are added or subtracted, and both ends can be reached: a value a whole number of
/// ranges below @p min lands on @p max, one a whole number of ranges above @p max lands on @p min;
/// @p min and @p max themselves stay.
///
/// @param value the quantity; NaN is returned as it is. One that is more than 2^31 ranges away is
///        not brought all the way.
/// @param min the lower end.
/// @param max the upper end, above @p min.
/// @tparam T double, float, int or a wider signed type.
/// @return the quantity in [min, max] but for rounding. Whole numbers must not be so far away that
///         the distance does not fit them.
template <typename T>
T circLimit(T value, T min, T max) {
    const T range = max - min;
    const auto wholeRanges = [range](T distance) {
        constexpr auto most = static_cast<T>(std::numeric_limits<std::int32_t>::max());
        constexpr auto least = static_cast<T>(std::numeric_limits<std::int32_t>::min());
        const T ranges = distance / range + 1;
        if (!(ranges < most)) {
            return most;
        }
        return ranges > least ? static_cast<T>(static_cast<std::int32_t>(ranges)) : least;
    };
    if (min > value)
        value += wholeRanges(min - value) * range;
    if (value > max)
        value -= wholeRanges(value - max) * range;
    return value;
}

/// Limits a value to a range.
/// @param value the value; NaN is returned as it is.
/// @param min the least result.
/// @param max the greatest result, not below @p min.
/// @return @p min below the range, @p max above it, else the value.
template <typename T>
T clampTo(T value, T min, T max) {
    if (min > value)
        return min;
    return max < value ? max : value;
}

/// Interpolates linearly between two points, without going beyond them.
/// @param x the place; before @p x0 it counts as @p x0, beyond @p x1 as @p x1.
/// @param x0, x1 the places of the two points; equal ones give NaN or one of the two values;
///        whole numbers must differ.
/// @param y0, y1 the values there.
/// @tparam T double or float; whole numbers give one of the two values.
/// @return the value at @p x.
template <typename T>
T interpolate(T x, T x0, T x1, T y0, T y1) {
    const T t = clampTo((x - x0) / (x1 - x0), T{0}, T{1});
    return (y1 - y0) * t + y0;
}

}  // namespace Orlek::Math
