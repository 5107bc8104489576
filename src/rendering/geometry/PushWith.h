// Lists that grow together.
#pragma once

#include <vector>

namespace Orlek::Detail {

/// Appends a value to a list and does the rest of the step: both or, without memory, neither.
template <typename T, typename Rest>
void pushWith(std::vector<T>& list, const T& value, Rest&& rest) {
    list.push_back(value);
    try {
        rest();
    } catch (...) {
        list.pop_back();
        throw;
    }
}

}  // namespace Orlek::Detail
