// Each connected water is looked at once. It is a hole when most of its shore is steeper than a
// slope that real shores rarely have; then the slopes down to it are no terrain either.
#include "Voids.h"

#include <algorithm>

#include "Cover.h"
#include "HeightColours.h"

namespace MovingMap {

namespace {

constexpr double steepest = 1.2;  // Rise over run.
// The upward part of a normal on such a slope, exaggerated as the relief is, in the texture's code.
constexpr unsigned steepNormal = 50700;

class VoidFinder {
public:
    VoidFinder(ReliefImage& image, double metresPerTexel, int step)
        : mImage(image),
          mCliffM(metresPerTexel * steepest),
          mStep(step),
          mSeen(image.cover.size() / 4),
          mHatched(mSeen.size()) {}

    void run() {
        for (std::size_t texel = 0; texel < mSeen.size(); ++texel) {
            if (!mSeen[texel] && waterAt(texel) && isVoid(texel)) {
                hatchAll();
            }
        }
    }

private:
    template <typename Visit>
    void forNeighbours(std::size_t texel, Visit&& visit) {
        const auto width = static_cast<std::size_t>(mImage.width);
        const std::size_t column = texel % width;
        if (column > 0) {
            visit(texel - 1);
        }
        if (column + 1 < width) {
            visit(texel + 1);
        }
        if (texel >= width) {
            visit(texel - width);
        }
        if (texel + width < mSeen.size()) {
            visit(texel + width);
        }
    }

    bool waterAt(std::size_t texel) const { return isWater(mImage.cover.data() + texel * 4); }

    bool isCliff(std::size_t texel) const {
        return heightOf(mImage.normals[texel * 4 + 3]) > mCliffM;
    }

    bool landAt(std::size_t texel) const { return mImage.cover[texel * 4 + 3] < 128; }

    // Collects the water around a texel.
    bool isVoid(std::size_t start) {
        std::size_t shore = 0;
        std::size_t cliffs = 0;
        mMembers.assign(1, start);
        mSeen[start] = true;
        for (std::size_t i = 0; i < mMembers.size(); ++i) {
            forNeighbours(mMembers[i], [&](std::size_t next) {
                if (landAt(next) || mHatched[next]) {
                    ++shore;
                    cliffs += mHatched[next] || isCliff(next) ? 1 : 0;
                } else if (!mSeen[next] && waterAt(next)) {
                    mSeen[next] = true;
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
            forNeighbours(mMembers[i], [&](std::size_t next) {
                if (!mSeen[next] && landAt(next) && mImage.normals[next * 4 + 2] < steepNormal) {
                    mSeen[next] = true;
                    mMembers.push_back(next);
                }
            });
        }
    }

    void hatch(std::size_t texel) {
        mHatched[texel] = true;
        const auto width = static_cast<std::size_t>(mImage.width);
        const Rgba cover = hatchCover(static_cast<int>(texel % width) * mStep,
                                      static_cast<int>(texel / width) * mStep);
        std::copy(cover.begin(), cover.end(),
                  mImage.cover.begin() + static_cast<std::ptrdiff_t>(texel * 4));
    }

    ReliefImage& mImage;
    double mCliffM;
    int mStep;
    std::vector<bool> mSeen;
    std::vector<bool> mHatched;
    std::vector<std::size_t> mMembers;
};

}  // namespace

void hatchVoids(ReliefImage& image, double metresPerTexel, int step) {
    VoidFinder(image, metresPerTexel, step).run();
}

}  // namespace MovingMap
