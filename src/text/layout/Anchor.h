// The nine anchors of a line of text: which point of its box lies on the position it is drawn at.
#pragma once

#include <Orlek/Math/Vector2.h>

namespace Orlek::Detail {

/// How far the pen starts from the anchor of a text `width` wide and `height` high.
///
/// `alignment` counts as the fonts' `Alignment`: its remainder by 3 goes top, centre, bottom; its
/// quotient left, centre, right. Anything outside 0 to 8 gives (0, 0), the baseline's left end.
Math::Vector2<float> anchorOffset(int alignment, float width, float height);

}  // namespace Orlek::Detail
