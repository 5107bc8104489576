// Numbers as text, read by the rules of the C library but with a point in every locale.
#pragma once

namespace Orlek::Detail {

/// What strtod(text, nullptr) gives in the classic locale. Safe from any thread.
double classicDouble(const char* text);

}  // namespace Orlek::Detail
