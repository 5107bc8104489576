#include "network/DottedAddress.h"

namespace Orlek::Detail {

std::string dottedAddress(unsigned long address) {
    const auto octet = [address](unsigned int shift) {
        return std::to_string((address >> shift) & 255U);
    };
    return octet(24) + "." + octet(16) + "." + octet(8) + "." + octet(0);
}

}  // namespace Orlek::Detail
