#include "text/raster/ShelfLayout.h"

#include <algorithm>

namespace Orlek::Detail {

int nextPower2(int n) {
    int power = 1;
    while (power < n && power < 4096) {
        power *= 2;
    }
    return power;
}

void ShelfLayout::place(int width, int height) {
    mMaxHeight = std::max(mMaxHeight, height);
    if (mNextX + width + mRecipe.gap >= mRecipe.shelfWidth) {
        ++mLastShelf;
        mNextX = mRecipe.padding;
    }
    mCells.push_back({mNextX, mLastShelf, width + mRecipe.gap - mRecipe.padding});
    mNextX += width + mRecipe.gap;
}

int ShelfLayout::atlasWidth() const {
    return mLastShelf == 0 ? nextPower2(mNextX) : mRecipe.shelfWidth;
}

int ShelfLayout::atlasHeight() const {
    return nextPower2(shelfStart(mLastShelf + 1) + mRecipe.padding);
}

}  // namespace Orlek::Detail
