#include "text/layout/Anchor.h"

namespace Orlek::Detail {

Math::Vector2<float> anchorOffset(int alignment, float width, float height) {
    if (alignment < 0 || alignment > 8) {
        return {0.0F, 0.0F};
    }
    constexpr double widthShare[] = {0.0, 0.5, 1.0};   // left, centre, right
    constexpr double heightShare[] = {1.0, 0.5, 0.0};  // top, centre, bottom (the baseline)
    return {static_cast<float>(0.0 - widthShare[alignment / 3] * static_cast<double>(width)),
            static_cast<float>(0.0 - heightShare[alignment % 3] * static_cast<double>(height))};
}

}  // namespace Orlek::Detail
