// Numbers as text, the same in every locale.
#pragma once

#include <string>

namespace Orlek::Detail {

// The number with six significant digits, as a stream in the classic locale writes it.
std::string numberText(double value);

}  // namespace Orlek::Detail
