// Lines: independent segments, their width, stipple, transparency and edges.
#include "Show.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

constexpr int widths[] = {1, 2, 3, 5, 8};
constexpr unsigned short patterns[] = {0x1111, 0x3333, 0x00FF, 0x18FF, 0xFFFC};
constexpr const char* names[] = {"0x1111", "0x3333", "0x00FF", "0x18FF", "0xFFFC"};
constexpr float alphas[] = {1.0F, 0.7F, 0.4F, 0.2F};

struct Picture {
    Sheet sheet{
        "Lines",
        "Each pair of vertices is a segment: grids, ticks, vectors. One draw call an object.", 3,
        2};
    std::vector<Lines> rows;
    Lines smooth, hard;  // scales around the origin
    Box left, middle, right;

    Lines& addRow(const Colour& colour, float width, Point from, Point to) {
        Lines& line = rows.emplace_back();
        line.addVertex(from);
        line.addVertex(to);
        line.setColor(colour);
        line.setLineWidth(pixels(width));
        return line;
    }

    Picture() {
        const Box wide = sheet.sample(0, 0, "setLineWidth(width)", "in pixels");
        const Box dashed = sheet.sample(1, 0, "setStipple(pattern)", "a bit a pixel, bit 0 first");
        for (int i = 0; i < 5; ++i) {
            const Box row = sheet.labelledRow(wide, i, 5, std::to_string(widths[i]));
            addRow(cyan, static_cast<float>(widths[i]), row.at(0.0, 0.3), row.at(1.0, 0.7));
            const Box dashes = sheet.labelledRow(dashed, i, 5, names[i]);
            addRow(amber, 3, dashes.at(0.0, 0.5), dashes.at(1.0, 0.5)).setStipple(patterns[i]);
        }
        const Box clear = sheet.sample(2, 0, "setColor({r, g, b, alpha})", "1, 0.7, 0.4 and 0.2");
        addRow(white, 3, clear.at(0.1, 0.0), clear.at(0.9, 1.0));
        for (int i = 0; i < 4; ++i) {
            const Box row = clear.row(i, 4);
            addRow({1.0F, 0.35F, 0.86F, alphas[i]}, 10, row.at(0.0, 0.5), row.at(1.0, 0.5));
        }
        left = sheet.sample(0, 1, "setAntiAlias(true)", "smooth edges, blended");
        middle = sheet.sample(1, 1, "setAntiAlias(false)", "hard edges, no blending");
        right = sheet.sample(2, 1, "MatrixRotate(angle, 0, 0, 1)", "the same object, turned");
        for (int bearing = 0; bearing < 360; bearing += 5) {
            smooth.addVertex(polar({0, 0}, bearing, 76.0));
            smooth.addVertex(polar({0, 0}, bearing, bearing % 30 == 0 ? 46.0 : 60.0));
        }
        smooth.setColor(green);
        smooth.setLineWidth(pixels(1));
        hard = smooth;
        hard.setAntiAlias(false);
        sheet.magnify(left, polar(left.at(0.29, 0.5), 45.0, 66.0));
        sheet.magnify(middle, polar(middle.at(0.29, 0.5), 45.0, 66.0));
    }

    void draw(double seconds) {
        sheet.draw();
        for (Lines& line : rows) {
            line.render();
        }
        place(left.at(0.29, 0.5), 0.0, [&] { smooth.render(); });
        place(middle.at(0.29, 0.5), 0.0, [&] { hard.render(); });
        place(right.centre(), 6.0 * seconds, [&] { smooth.render(); });
        sheet.finish();
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "lines");
}
