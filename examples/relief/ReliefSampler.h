// From samples of terrain to the texels of a relief.
#pragma once

#include <array>

#include "NormalTable.h"
#include "Position.h"
#include "ReliefImage.h"

namespace MovingMap {

/// Where the samples of a picture lie: latitude and longitude are linear in its rows and columns.
struct SampleGrid {
    Position start;   ///< of the first sample of the lower left texel
    Position alongX;  ///< from a sample to the next one to the right
    Position alongY;  ///< and to the next one above
    int side = 1;     ///< samples of a texel along either side
    int step = 1;     ///< pixels of the picture along the side of a texel

    Position at(int x, int y) const {
        return {start.lat + alongX.lat * x + alongY.lat * y,
                start.lon + alongX.lon * x + alongY.lon * y};
    }
};

/// The samples that a texel needs along either side. Where texels are wider than the posts of
/// common tiles, single samples would be noise.
int samplesASide(double metresPerTexel);

/// Gives an image its size; its texels keep what is in the memory.
void resizeRelief(int width, int height, ReliefImage& image);

/// What the terrain under a texel adds up to.
class TexelSum {
public:
    void add(const PackedNormal& normal, double heightM);

    /// Writes the texel; one without samples is hatched, and the image then not complete.
    void write(int column, int row, int step, ReliefImage& image) const;

private:
    std::array<unsigned, 3> mNormal{};
    double mHeightM = 0.0;
    double mWater = 0.0;
    unsigned mCount = 0;
};

/// Samples one texel.
/// @param ground bool(const Position&, PackedNormal&, double& heightM), false where no terrain is
template <typename Ground>
void sampleTexel(const SampleGrid& grid, int column, int row, Ground&& ground, ReliefImage& image) {
    TexelSum sum;
    for (int y = row * grid.side; y < (row + 1) * grid.side; ++y) {
        for (int x = column * grid.side; x < (column + 1) * grid.side; ++x) {
            PackedNormal normal;
            double heightM = 0.0;
            if (ground(grid.at(x, y), normal, heightM)) {
                sum.add(normal, heightM);
            }
        }
    }
    sum.write(column, row, grid.step, image);
}

}  // namespace MovingMap
