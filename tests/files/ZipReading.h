// Reads entries through the interface, as text.
#pragma once

#include <Orlek/FileSystem/ZipFile.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace OrlekTest {

/// Calls `read` with a size; that must be 0 when nothing is given.
template <typename Read>
std::optional<std::string> entryText(Read&& read) {
    unsigned int size = 99;
    unsigned char* bytes = read(size);
    if (bytes == nullptr) {
        EXPECT_EQ(size, 0U);
        return std::nullopt;
    }
    std::string text(reinterpret_cast<char*>(bytes), size);
    std::free(bytes);
    return text;
}

inline std::optional<std::string> readEntry(Orlek::FileSystem::ZipFile& zip,
                                            const std::string& name) {
    return entryText([&](unsigned int& size) { return zip.readFile(name, size); });
}

inline std::optional<std::string> readFirst(Orlek::FileSystem::ZipFile& zip) {
    return entryText([&](unsigned int& size) { return zip.readFirstFile(size); });
}

}  // namespace OrlekTest
