// Each connected water is looked at once. It is a hole when most of its shore is steeper than a
// slope that real shores rarely have; then the slopes down to it are no terrain either.
#include "Voids.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "Cover.h"
#include "HeightColours.h"

namespace MovingMap {

namespace {

constexpr double steepest = 1.2;  // Rise over run.
// The upward part of a normal on such a slope, exaggerated as the relief is, in the texture's code.
constexpr unsigned steepNormal = 50943;

// Texels are counted in 32 bits: a picture of 8192 by 8192 has 67 million.
using Index = std::uint32_t;

class VoidFinder {
public:
    VoidFinder(ReliefImage& image, double metresPerTexel, int step)
        : mImage(image),
          mCliffM(metresPerTexel * steepest),
          mStep(step),
          mCount(static_cast<Index>(image.cover.size() / 4)),
          mSeen(mCount),
          mHatched(mCount) {}

    void run() {
        const auto width = static_cast<Index>(mImage.width);
        for (Index texel = 0; texel + 1 < mCount; ++texel) {
            lookAt(texel, texel + 1);
            if (texel + width < mCount) {
                lookAt(texel, texel + width);
            }
        }
    }

private:
    // Only water that touches a cliff somewhere is worth collecting; the open sea is not.
    void lookAt(Index a, Index b) {
        const bool waterAtA = waterAt(a);
        if (waterAtA == waterAt(b)) {
            return;
        }
        const Index water = waterAtA ? a : b;
        if (mSeen[water] == 0 && isCliff(waterAtA ? b : a) && isVoid(water)) {
            hatchAll();
        }
    }

    template <typename Visit>
    void forNeighbours(Index texel, Visit&& visit) {
        const auto width = static_cast<Index>(mImage.width);
        const Index column = texel % width;
        if (column > 0) {
            visit(texel - 1);
        }
        if (column + 1 < width) {
            visit(texel + 1);
        }
        if (texel >= width) {
            visit(texel - width);
        }
        if (texel + width < mCount) {
            visit(texel + width);
        }
    }

    bool waterAt(Index texel) const { return isWater(mImage.cover.data() + texel * 4); }

    bool isCliff(Index texel) const {
        return mHatched[texel] != 0 ||
               (landAt(texel) && heightOf(mImage.normals[texel * 4 + 3]) > mCliffM);
    }

    bool landAt(Index texel) const { return mImage.cover[texel * 4 + 3] < 128; }

    // Collects the water around a texel.
    bool isVoid(Index start) {
        Index shore = 0;
        Index cliffs = 0;
        mMembers.assign(1, start);
        mSeen[start] = 1;
        for (std::size_t i = 0; i < mMembers.size(); ++i) {
            forNeighbours(mMembers[i], [&](Index next) {
                if (landAt(next) || mHatched[next] != 0) {
                    ++shore;
                    cliffs += isCliff(next) ? 1 : 0;
                } else if (mSeen[next] == 0 && waterAt(next)) {
                    mSeen[next] = 1;
                    mMembers.push_back(next);
                }
            });
        }
        return cliffs * 2 > shore;
    }

    // Hatches the collected water and the steep slopes that lead down to it.
    void hatchAll() {
        mImage.complete = false;
        for (std::size_t i = 0; i < mMembers.size(); ++i) {
            hatch(mMembers[i]);
            forNeighbours(mMembers[i], [&](Index next) {
                if (mSeen[next] == 0 && landAt(next) &&
                    mImage.normals[next * 4 + 2] < steepNormal) {
                    mSeen[next] = 1;
                    mMembers.push_back(next);
                }
            });
        }
    }

    void hatch(Index texel) {
        mHatched[texel] = 1;
        const auto width = static_cast<Index>(mImage.width);
        const Rgba cover = hatchCover(static_cast<int>(texel % width) * mStep,
                                      static_cast<int>(texel / width) * mStep);
        std::copy(cover.begin(), cover.end(),
                  mImage.cover.begin() + static_cast<std::ptrdiff_t>(texel * 4));
    }

    ReliefImage& mImage;
    double mCliffM;
    int mStep;
    Index mCount;
    std::vector<char> mSeen;
    std::vector<char> mHatched;
    std::vector<Index> mMembers;
};

}  // namespace

void hatchVoids(ReliefImage& image, double metresPerTexel, int step) {
    VoidFinder(image, metresPerTexel, step).run();
}

}  // namespace MovingMap
