// Where the glyphs of an atlas lie.
//
// Glyphs are placed in order on shelves of a fixed width, left to right. All shelves are as high as
// the highest glyph, which is known only when the last one is placed; until then a shelf is just a
// number. A glyph that would reach the right end with its gap begins the next shelf.
#pragma once

#include <cstddef>
#include <vector>

namespace Orlek::Detail {

/// The smallest of 1, 2, 4, ..., 4096 that is not less than n; 4096 for every n above 2048.
int nextPower2(int n);

/// Distances in pixels.
struct ShelfRecipe {
    int shelfWidth;  ///< Width of the atlas as soon as it has more than one shelf.
    int gap;         ///< Kept free right of each glyph.
    int padding;     ///< Kept free around each glyph: left of the first, below and above a shelf.
};

class ShelfLayout {
public:
    /// A glyph's place: the column where its bitmap begins, the shelf it stands on, and the columns
    /// that it may fill.
    struct Cell {
        int x;
        int shelf;
        int room;
    };

    explicit ShelfLayout(ShelfRecipe recipe) : mRecipe(recipe), mNextX(recipe.padding) {}

    /// Places the next glyph. Sizes are 0 to 32,767 pixels.
    void place(int width, int height);

    /// The place of the glyph that was placed as number `index`, from 0.
    Cell cell(std::size_t index) const { return mCells[index]; }

    const ShelfRecipe& recipe() const { return mRecipe; }
    int maxHeight() const { return mMaxHeight; }
    /// The row of the atlas where a shelf begins, its padding included.
    int shelfStart(int shelf) const { return shelf * (mMaxHeight + mRecipe.padding); }
    int atlasWidth() const;
    int atlasHeight() const;

private:
    ShelfRecipe mRecipe;
    std::vector<Cell> mCells;
    int mNextX;
    int mLastShelf = 0;
    int mMaxHeight = 0;
};

}  // namespace Orlek::Detail
