// Names with a zero byte: up to it they would name something else to the system, so they name none.
#pragma once

#include <string>

namespace Orlek::Detail {

inline bool hasZeroByte(const std::string& name) {
    return name.find('\0') != std::string::npos;
}

}  // namespace Orlek::Detail
