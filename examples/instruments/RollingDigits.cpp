#include "RollingDigits.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Instruments {

namespace {

constexpr float size = 27.0F;
constexpr float digitWidth = size * 13.12F / 15.97F;
constexpr float lineHeight = size * 1.05F;

// A drum from its right end: the labels before and after `position` roll through the box.
template <typename Label>
void drawDrum(Canvas& canvas, float right, float middle, double position, Label label) {
    const double whole = std::floor(position);
    for (int i = -1; i <= 2; ++i) {
        const auto offset = static_cast<float>(whole + i - position) * lineHeight;
        canvas.text(label(whole + i), {right, middle + offset}, size, white,
                    Canvas::Align::CENTER_RIGHT);
    }
}

std::string padded(double value, int digits) {
    const std::string text = std::to_string(std::lround(value));
    return std::string(
               static_cast<std::size_t>(std::max(0, digits - static_cast<int>(text.size()))), '0') +
           text;
}

// Where the drum of the digit worth `weight` stands: it turns while the last drum makes its step
// from the highest label to 0.
double drumPosition(double value, double weight, double step) {
    const double rest = value - std::floor(value / weight) * weight;
    return std::floor(value / weight) + std::max(0.0, rest - (weight - step)) / step;
}

}  // namespace

void drawRollingDigits(Canvas& canvas, const Box& box, double shown, const DrumStyle& style) {
    const double value = std::max(0.0, shown);
    canvas.clip(box);
    float right = box.right;
    const float middle = box.centre().y;
    double weight = std::pow(10.0, style.lastDigits);
    drawDrum(canvas, right, middle, value / style.step, [&](double index) {
        return padded(std::fmod(index * style.step + weight, weight), style.lastDigits);
    });
    for (int digit = style.lastDigits; digit < style.digits; ++digit, weight *= 10.0) {
        right -= digitWidth * static_cast<float>(digit == style.lastDigits ? style.lastDigits : 1);
        const double position = drumPosition(value, weight, style.step);
        if (position > 0.0) {
            drawDrum(canvas, right, middle, position, [](double index) {
                return index <= 0.0 ? std::string() : padded(std::fmod(index, 10.0), 1);
            });
        }
    }
    canvas.noClip();
}

}  // namespace Instruments
