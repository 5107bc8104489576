// IPv4 addresses as text.
#pragma once

#include <string>

namespace Orlek::Detail {

/// The dotted text of an address in host byte order: 0x7F000001 gives 127.0.0.1. Bits above the
/// lowest 32 are not looked at.
std::string dottedAddress(unsigned long address);

}  // namespace Orlek::Detail
