// The folder of real elevation tiles, which is not part of the project: ORLEK_DATA_DIR, or
// shared/data beside the checkout. Empty when there is none.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace OrlekTest {

inline std::string dataDir() {
    const char* chosen = std::getenv("ORLEK_DATA_DIR");
    const std::string path = chosen != nullptr ? chosen : ORLEK_SOURCE_DIR "/../shared/data";
    return std::filesystem::is_directory(path) ? path : std::string();
}

inline std::string terrainDir() {
    const std::string data = dataDir();
    const std::string path = data + "/terrain";
    return !data.empty() && std::filesystem::is_directory(path) ? path : std::string();
}

}  // namespace OrlekTest
