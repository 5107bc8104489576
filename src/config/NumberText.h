// Numbers as text, the same in every locale.
#pragma once

#include <string>

namespace Orlek::Detail {

// The number with six significant digits, as a stream in the classic locale writes it.
std::string numberText(double value);

// 0x and the hexadecimal digits in lower case.
std::string hexText(unsigned int value);

}  // namespace Orlek::Detail
