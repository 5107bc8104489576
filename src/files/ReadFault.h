// The one list of reasons why a file of a known format cannot be read: whoever finds the fault
// names it, and programs that explain files to people need no parser of their own.
#pragma once

#include <cstdint>

namespace Orlek::Detail {

enum class ReadFault : std::uint8_t {
    none,
    unreadable,        ///< no regular file, or it cannot be opened
    noHeader,          ///< does not begin as its format does
    headerCut,         ///< ends within its header
    impossibleHeader,  ///< numbers in its header that cannot be true
    dataCut,           ///< ends before its data do
    unknownSize,       ///< its content has the size of nothing known
    damaged,           ///< data that cannot be decoded, or fewer or more than its header says
    noMemory
};

}  // namespace Orlek::Detail
