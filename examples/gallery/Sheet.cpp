// Panels are cleared rectangles, so that a page needs no class that its samples are to explain.
#include "Sheet.h"

#include <GL/gl.h>

#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace Gallery {

namespace {

constexpr float margin = 24.0F;
constexpr float gap = 14.0F;
constexpr float padding = 14.0F;
constexpr float headHeight = 84.0F;
constexpr float captionHeight = 46.0F;
constexpr float magnification = 6.0F;

const Colour background(0.055F, 0.071F, 0.094F, 1.0F);
const Colour frameColour(0.20F, 0.25F, 0.32F, 1.0F);

void setClearColour(const Colour& colour) {
    glClearColor(colour.x, colour.y, colour.z, colour.w);
}

float pixelsOfUnit = 1.0F;

// A box of the page in pixels of the framebuffer.
std::array<int, 4> pixelsOf(const Box& box) {
    std::array<int, 4> view{};
    glGetIntegerv(GL_VIEWPORT, view.data());
    const float scale = static_cast<float>(view[2]) / pageWidth;
    const auto shown = [&](float units) { return static_cast<int>(std::lround(units * scale)); };
    return {view[0] + shown(box.x), view[1] + shown(box.y), shown(box.width), shown(box.height)};
}

void clear(const Box& box, const Colour& colour) {
    const auto [x, y, width, height] = pixelsOf(box);
    glEnable(GL_SCISSOR_TEST);
    glScissor(x, y, width, height);
    setClearColour(colour);
    glClear(GL_COLOR_BUFFER_BIT);
    glDisable(GL_SCISSOR_TEST);
}

}  // namespace

float pixels(float units) {
    return units * pixelsOfUnit;
}

void setPixelsOfUnit(double count) {
    pixelsOfUnit = static_cast<float>(count);
}

Point polar(Point centre, double bearing, double radius) {
    const double angle = bearing * std::numbers::pi / 180.0;
    return {centre.x + static_cast<float>(radius * std::sin(angle)),
            centre.y + static_cast<float>(radius * std::cos(angle))};
}

Points polygon(Point centre, double radius, int corners, int step) {
    Points points;
    for (int i = 0; i < corners; ++i) {
        points.push_back(polar(centre, 360.0 * i * step / corners, radius));
    }
    return points;
}

Orlek::Math::Matrix4<float> placement(Point at, double bearing, double scale) {
    using namespace Orlek::OpenGL;
    MatrixPush();
    MatrixLoadIdent();
    MatrixTranslate(at.x, at.y, 0.0);
    MatrixRotate(-bearing, 0.0, 0.0, 1.0);
    MatrixScale(scale, scale, 1.0);
    const Orlek::Math::Matrix4<float> matrix = MatrixGet();
    MatrixPop();
    return matrix;
}

void load(Text& font, const char* name, int size, const Colour& colour) {
    const std::string path = std::string("/usr/share/fonts/truetype/dejavu/") + name;
    if (!font.load(path.c_str(), static_cast<int>(pixels(static_cast<float>(size))))) {
        throw std::runtime_error("cannot use the font file " + path +
                                 " (Debian package fonts-dejavu-core)");
    }
    font.setColor(colour);
}

Sheet::Sheet(const std::string& title, const std::string& subtitle, int columns, int rows)
    : mColumns(columns), mRows(rows) {
    load(mTitle, "DejaVuSans-Bold.ttf", 26, white);
    load(mCode, "DejaVuSansMono.ttf", 12, white);
    load(mNote, "DejaVuSans.ttf", 12, grey);
    mFrames.setColor(frameColour);
    mFrames.setLineWidth(pixels(1));
    mMarks.setLineWidth(pixels(1));
    mMarks.setColor(red);
    mRule.addVertex(Point(margin, pageHeight - 33.0F));
    mRule.addVertex(Point(margin + 6.0F, pageHeight - 33.0F));
    mRule.setLineWidth(pixels(26));
    mRule.setColor(cyan);
    mRule.setAntiAlias(false);
    add(mTitle, {margin + 18.0F, pageHeight - 43.0F}, title, Text::BOTTOM_LEFT);
    add(mNote, {margin + 18.0F, pageHeight - 66.0F}, subtitle, Text::BOTTOM_LEFT);
}

Box Sheet::sample(int column, int row, const std::string& code, const std::string& note,
                  int columns, int rows) {
    const auto size = [](float whole, int count, int covered) {
        const float one =
            std::floor((whole - gap * static_cast<float>(count - 1)) / static_cast<float>(count));
        return one * static_cast<float>(covered) + gap * static_cast<float>(covered - 1);
    };
    const float width = pageWidth - 2.0F * margin;
    const float height = pageHeight - headHeight - margin;
    Box box{0.0F, 0.0F, size(width, mColumns, columns), size(height, mRows, rows)};
    box.x = margin + static_cast<float>(column) * (size(width, mColumns, 1) + gap);
    box.y = pageHeight - headHeight - static_cast<float>(row) * (size(height, mRows, 1) + gap) -
            box.height;
    mPanels.push_back(box);
    addFrame(box);
    add(mCode, {box.x + padding, box.y + 29.0F}, code, Text::BOTTOM_LEFT);
    add(mNote, {box.x + padding, box.y + 12.0F}, note, Text::BOTTOM_LEFT);
    return {box.x + padding, box.y + captionHeight + padding, box.width - 2.0F * padding,
            box.height - captionHeight - 2.0F * padding};
}

void Sheet::addFrame(const Box& box) {
    const Point low(box.x + 0.5F, box.y + 0.5F);
    const Point high(box.x + box.width - 0.5F, box.y + box.height - 0.5F);
    mFrames.addLineLoop(Points{low, {high.x, low.y}, high, {low.x, high.y}});
}

void Sheet::magnify(const Box& sample, Point around) {
    const Point size(16.0F, 22.0F);
    const Box to{sample.x + sample.width - size.x * magnification - 1.0F,
                 std::floor(sample.centre().y - size.y * magnification / 2.0F),
                 size.x * magnification, size.y * magnification};
    mMagnifiers.push_back(
        {{around.x - size.x / 2.0F, around.y - size.y / 2.0F, size.x, size.y}, to});
    addFrame({to.x - 1.0F, to.y - 1.0F, to.width + 2.0F, to.height + 2.0F});
}

void Sheet::label(Point at, const std::string& text, Text::Alignment align) {
    add(mNote, at, text, align);
}

Box Sheet::labelledRow(const Box& box, int number, int count, const std::string& text) {
    constexpr float labelWidth = 60.0F;
    Box row = box.row(number, count);
    label(row.at(0.0, 0.5), text, Text::CENTER_LEFT);
    row.x += labelWidth;
    row.width -= labelWidth;
    return row;
}

// Whole pixels, a unit each, keep the text sharp.
void Sheet::add(Text& font, Point at, const std::string& text, Text::Alignment align) {
    const Point whole(std::round(at.x), std::round(at.y));
    font.addText(text, placement(whole, 0.0, 1.0 / pixels(1)), align);
}

void Sheet::mark(Point at) {
    constexpr float arm = 4.0F;
    mMarks.addVertex(Point(at.x - arm, at.y));
    mMarks.addVertex(Point(at.x + arm, at.y));
    mMarks.addVertex(Point(at.x, at.y - arm));
    mMarks.addVertex(Point(at.x, at.y + arm));
}

void Sheet::draw() {
    setClearColour(background);
    glClear(GL_COLOR_BUFFER_BIT);
    for (const Box& box : mPanels) {
        clear(box, panel);
    }
    mFrames.render(1.0);
    mRule.render();
    mTitle.render();
    mCode.render();
    mNote.render();
}

void Sheet::finish() {
    glDisable(GL_BLEND);
    for (const auto& [from, to] : mMagnifiers) {
        const auto [x, y, width, height] = pixelsOf(from);
        glRasterPos2f(2.0F * to.x / pageWidth - 1.0F, 2.0F * to.y / pageHeight - 1.0F);
        glPixelZoom(magnification, magnification);
        glCopyPixels(x, y, width, height, GL_COLOR);
    }
    glPixelZoom(1.0F, 1.0F);
    mMarks.render();
}

}  // namespace Gallery
