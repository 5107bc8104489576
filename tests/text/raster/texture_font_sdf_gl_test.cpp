// What the distance-field font draws, at several sizes, with and without outline.
#include <Orlek/OpenGL/TextureFontSdf.h>

#include "FontPicture.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class TextureFontSdfTest : public GlTest {};

TEST_F(TextureFontSdfTest, BatchAndSingleTextsGiveTheSamePixels) {
    TextureFontSdf font;
    ASSERT_TRUE(font.load(sansFont, 30));
    font.setOutlineWidth(0.2F);
    font.setOutlineColor({0.0F, 1.0F, 0.0F, 1.0F});
    font.renderFont(10.0, 20.0, "Sdf |", TextureFontSdf::BOTTOM_LEFT);
    const FontPicture atOnce = readPicture(width, height);
    EXPECT_FALSE(atOnce.blank());
    wipe();
    font.addText("Sdf |", {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 20, 0, 1}},
                 TextureFontSdf::BOTTOM_LEFT);
    font.render();
    EXPECT_LE(readPicture(width, height).distance(atOnce), 1);
}

}  // namespace
