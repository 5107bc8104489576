// TextureFont, TextureFontSdf, VectorFont: nine alignments, sizes, outlines, symbols.
#include "Show.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

constexpr const char* fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* headings[] = {"N", "3",  "6",  "E", "12", "15",
                                    "S", "21", "24", "W", "30", "33"};
constexpr const char* strokeTexts[] = {"FL 350", "FL 350", "\1\2\3\4\5\6\7\b\v"};

// The alignments 0 to 8 go down the columns: TOP, CENTER, BOTTOM; LEFT, CENTER, RIGHT.
Point anchor(const Box& box, int alignment) {
    return box.at(0.04 + 0.46 * (alignment / 3), 0.96 - 0.42 * (alignment % 3));
}

struct Picture {
    Sheet sheet{"Fonts", "Crosses mark the anchors of the nine alignments.", 3, 2};
    TextureFont atlas;
    TextureFontSdf field;
    VectorFont strokes;
    Box nineAtlas = sheet.sample(0, 0, "TextureFont", "a font file, drawn at one size");
    Box nineField = sheet.sample(1, 0, "TextureFontSdf", "a font file, drawn at any size");
    Box nineStrokes = sheet.sample(2, 0, "VectorFont", "built in, drawn with lines");
    Box rose = sheet.sample(0, 1, "addText(text, matrix, align)", "twelve texts, one render()");
    Box sizes = sheet.sample(1, 1, "setOutlineWidth(0.2F)", "setSize(12), (31), (50): one atlas");
    Box symbols = sheet.sample(2, 1, "setLineWidth(1.5)", "any size; codes 1 to 31 are symbols");

    Picture() {
        atlas.load(fontFile, static_cast<int>(pixels(22)));
        strokes.setLineWidth(pixels(1.5F));
        field.load(fontFile, 22);
        field.setOutlineColor({0.7F, 0.1F, 0.0F, 1.0F});
        for (int i = 0; i < 27; ++i) {
            sheet.mark(anchor(i < 9 ? nineAtlas : i < 18 ? nineField : nineStrokes, i % 9));
        }
        for (int i = 0; i < 12; ++i) {
            const auto at = placement(polar({0, 0}, 30.0 * i, pixels(62)), 30.0 * i);
            atlas.addText(headings[i], at, Text::BOTTOM_CENTER);
        }
    }

    template <typename Font, typename... Size>
    void drawNine(Font& font, const Box& box, double scale, const Colour& colour, Size... size) {
        font.setColor(colour);
        for (int i = 0; i < 9; ++i) {
            place(anchor(box, i), 0.0, scale,
                  [&] { font.renderFont(0, 0, "Ag1", size..., Text::Alignment(i)); });
        }
    }

    void draw(double seconds) {
        sheet.draw();
        field.setSize(22);
        field.setOutlineWidth(0.0F);
        drawNine(atlas, nineAtlas, 1.0 / pixels(1), cyan);
        drawNine(field, nineField, 1.0, amber);
        drawNine(strokes, nineStrokes, 1.0, green, 22.0);
        place(rose.centre(), -8.0 * seconds, 1.0 / pixels(1), [&] { atlas.render(); });
        field.setOutlineWidth(0.2F);
        for (int i = 0; i < 3; ++i) {
            const Point left = sizes.at(0.5, 0.86 - 0.37 * i);
            field.setSize(12 + 19 * i);
            field.renderFont(left.x, left.y, "FL 350", Text::BOTTOM_CENTER);
            strokes.renderFont(symbols.centre().x, left.y, strokeTexts[i], 14 + 10 * i,
                               Text::BOTTOM_CENTER);
        }
        sheet.finish();
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "fonts");
}
