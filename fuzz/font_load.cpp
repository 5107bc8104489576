// Font files: reading, opening, measuring, laying out and drawing all characters of whatever bytes
// come, at a pixel height that the size of the input chooses.
#include <cstring>
#include <iterator>
#include <vector>

#include "FontInput.h"
#include "MemoryFile.h"

using namespace Orlek::Detail;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    std::vector<char> bytes;
    require(readFontFile("TextureFont", file.path().c_str(), bytes));
    require(bytes.size() == size && (size == 0 || std::memcmp(bytes.data(), data, size) == 0));
    FontFace face(freeType(), bytes.data(), static_cast<int>(size));
    if (face.error() != 0) {
        return 0;
    }
    constexpr int heights[] = {4, 16, 4, 300, 256, 16, 4};  // 4: the bitmap font in the corpus
    const int height = heights[size % std::size(heights)];
    GlyphAtlas atlas;
    GlyphSet font;
    if (buildAtlas(face, height, {.shelfWidth = 256, .gap = 3, .padding = 0}, atlas, font)) {
        require(height <= 256);
        makeQuads(font.glyphs, 0);
        checkRecords(font, atlas, 0);
    }
    return 0;
}
