// The bytes of a file.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace OrlekTest {

inline std::string wholeText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace OrlekTest
