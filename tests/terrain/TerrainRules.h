// The rules of elevation tiles written out one sample at a time, as tests and benchmarks compare
// with: slow, and free of anything the library has.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace OrlekTest {

struct RuleTile {
    double latOrigin = 0.0;
    double lonOrigin = 0.0;
    double latSpacing = 0.0;
    double lonSpacing = 0.0;
    int numLat = 0;
    int numLon = 0;
    std::vector<std::int16_t> samples;

    double s(int i, int j) const { return samples[static_cast<std::size_t>(j * numLat + i)]; }

    /// The nine cases, each as it is stated.
    double extrapolated(int i, int j) const {
        const int north = numLat - 1;
        const int east = numLon - 1;
        const bool latInside = i >= 0 && i < numLat;
        const bool lonInside = j >= 0 && j < numLon;
        if (latInside && lonInside) {
            return s(i, j);
        }
        if (latInside) {
            return j < 0 ? 2 * s(i, 0) - s(i, 1) : 2 * s(i, east) - s(i, east - 1);
        }
        if (lonInside) {
            return i < 0 ? 2 * s(0, j) - s(1, j) : 2 * s(north, j) - s(north - 1, j);
        }
        if (i < 0) {
            return j < 0 ? 2 * s(0, 0) - s(1, 1) : 2 * s(0, east) - s(1, east - 1);
        }
        return j < 0 ? 2 * s(north, 0) - s(north - 1, 1)
                     : 2 * s(north, east) - s(north - 1, east - 1);
    }

    std::optional<double> altitude(double lat, double lon) const {
        const double u = (lat - latOrigin) / latSpacing;
        const double v = (lon - lonOrigin) / lonSpacing;
        const int i = static_cast<std::uint16_t>(static_cast<std::int32_t>(u));
        const int j = static_cast<std::uint16_t>(static_cast<std::int32_t>(v));
        if (i >= numLat || j >= numLon) {
            return std::nullopt;
        }
        const double h00 = s(i, j);
        const double h01 = i < numLat - 1 ? s(i + 1, j) : h00;
        const double h10 = j < numLon - 1 ? s(i, j + 1) : h00;
        const double h11 = i < numLat - 1 && j < numLon - 1 ? s(i + 1, j + 1) : h00;
        const double fu = u - i;
        const double fv = v - j;
        const double a = h00 + (h10 - h00) * fv;
        const double b = h01 + (h11 - h01) * fv;
        return a + (b - a) * fu;
    }

    static double cubic(const double (&p)[4], double t) {
        return (1.5 * p[1] - 0.5 * p[0] - 1.5 * p[2] + 0.5 * p[3]) * (t * t * t) +
               (p[0] - 2.5 * p[1] + 2.0 * p[2] - 0.5 * p[3]) * (t * t) +
               (0.5 * p[2] - 0.5 * p[0]) * t + p[1];
    }

    static double cubicSlope(const double (&p)[4], double t) {
        return 3.0 * (1.5 * p[1] - 0.5 * p[0] - 1.5 * p[2] + 0.5 * p[3]) * (t * t) +
               2.0 * (p[0] - 2.5 * p[1] + 2.0 * p[2] - 0.5 * p[3]) * t + (0.5 * p[2] - 0.5 * p[0]);
    }

    double latSpacingMetres() const { return latSpacing * 60 * 1852; }
    double lonSpacingMetres() const {
        return std::cos(latOrigin * 0.017453292519943295) * lonSpacing * 60 * 1852;
    }

    std::array<unsigned char, 3> normal(double lat, double lon) const {
        return normal(lat, lon, latSpacingMetres(), lonSpacingMetres());
    }

    /// With the spacings worked out before, as a tile that is asked often has them.
    std::array<unsigned char, 3> normal(double lat, double lon, double latSpacingM,
                                        double lonSpacingM) const {
        const auto i = static_cast<std::int32_t>((lat - latOrigin) / latSpacing);
        const auto j = static_cast<std::int32_t>((lon - lonOrigin) / lonSpacing);
        if (i < 0 || i > numLat - 1 || j < 0 || j >= numLon - 1) {
            return {0, 0, 0};
        }
        const double fu = (lat - (i * latSpacing + latOrigin)) / latSpacing;
        const double fv = (lon - (j * lonSpacing + lonOrigin)) / lonSpacing;
        double c[4];
        double d[4];
        for (int n = 0; n < 4; ++n) {
            double line[4];
            double row[4];
            for (int m = 0; m < 4; ++m) {
                line[m] = extrapolated(i - 1 + m, j - 1 + n) / latSpacingM;
                row[m] = extrapolated(i - 1 + n, j - 1 + m) / lonSpacingM;
            }
            c[n] = cubic(line, fu);
            d[n] = cubic(row, fv);
        }
        const auto a = static_cast<float>(cubicSlope(c, fv));
        const auto b = static_cast<float>(cubicSlope(d, fu));
        const float length = std::sqrt(a * a + b * b + 1.0F);
        const auto pack = [](float component) {
            return static_cast<unsigned char>((double{component} + 1.0) * 127.5);
        };
        return {pack(-a / length), pack(-b / length), pack(1.0F / length)};
    }
};

/// The repair of one DTED line, in double precision as the rule says, and voids before it.
inline void repairLine(std::vector<std::int16_t>& line) {
    for (std::size_t k = 0; k < line.size(); ++k) {
        if (line[k] < -9000) {
            line[k] = 0;
        }
        if (k >= 2 && line[k - 2] == line[k - 1]) {
            line[k - 1] = static_cast<std::int16_t>(line[k - 2] + (line[k] - line[k - 2]) * 0.5);
        }
    }
}

}  // namespace OrlekTest
