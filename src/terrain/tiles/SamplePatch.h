// The sixteen samples around a point and the cubics through them, two of which are worked on at
// once: two doubles side by side are what the vector units of every 64-bit machine hold.
#pragma once

#include <Orlek/Math/Cubic.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Orlek::Detail {

using Two [[gnu::vector_size(16)]] = double;

/// Four longitude lines of four samples. south[k] are the samples 0 and 1 of the line k from the
/// west, north[k] its samples 2 and 3.
struct SamplePatch {
    Two south[4];
    Two north[4];

    /// Takes the four samples from `line` on.
    void setLine(std::int32_t k, const std::int16_t* line) {
        using Samples [[gnu::vector_size(8)]] = std::int16_t;
        using Integers [[gnu::vector_size(16)]] = std::int32_t;
        using Pair [[gnu::vector_size(8)]] = std::int32_t;
        Samples samples;
        std::memcpy(&samples, line, sizeof samples);
        const auto wide = __builtin_convertvector(samples, Integers);
        south[k] = __builtin_convertvector((Pair{wide[0], wide[1]}), Two);
        north[k] = __builtin_convertvector((Pair{wide[2], wide[3]}), Two);
    }

    [[nodiscard]] SamplePatch dividedBy(double divisor) const {
        SamplePatch result;
        for (std::size_t k = 0; k < 4; ++k) {
            result.south[k] = south[k] / divisor;
            result.north[k] = north[k] / divisor;
        }
        return result;
    }

    /// For each line the value at t of the cubic through its samples, from south to north.
    [[nodiscard]] std::array<double, 4> cubicsAlongLines(double t) const {
        std::array<double, 4> values;
        for (std::size_t k = 0; k < 4; k += 2) {
            const Two pair = Math::Detail::cubicValue<Two>(
                __builtin_shufflevector(south[k], south[k + 1], 0, 2),
                __builtin_shufflevector(south[k], south[k + 1], 1, 3),
                __builtin_shufflevector(north[k], north[k + 1], 0, 2),
                __builtin_shufflevector(north[k], north[k + 1], 1, 3), t);
            values[k] = pair[0];
            values[k + 1] = pair[1];
        }
        return values;
    }

    /// For each latitude the value at t of the cubic through the four lines, from west to east.
    [[nodiscard]] std::array<double, 4> cubicsAcrossLines(double t) const {
        const Two low = Math::Detail::cubicValue<Two>(south[0], south[1], south[2], south[3], t);
        const Two high = Math::Detail::cubicValue<Two>(north[0], north[1], north[2], north[3], t);
        return {low[0], low[1], high[0], high[1]};
    }
};

}  // namespace Orlek::Detail
