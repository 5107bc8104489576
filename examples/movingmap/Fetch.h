// Files that are downloaded before the first picture.
#pragma once

#include <string>
#include <vector>

namespace MovingMap {

struct Fetch {
    std::string url;
    std::string file;
};

/// Takes "--fetch URL FILE", as often as it stands there, out of a program's arguments.
/// Throws std::runtime_error when one of the two is missing.
std::vector<Fetch> takeFetches(std::vector<char*>& arguments);

/// Downloads files over HTTP, port 80. A PNG file or a tile must be whole. When that fails it says
/// why on the standard error stream, and a file of that name stays as it was.
/// @return the files that are not there, neither from now nor from before.
std::vector<std::string> fetchAll(const std::vector<Fetch>& fetches);

/// Whether two paths name one file, as far as the texts tell; an empty one names none.
bool samePath(const std::string& a, const std::string& b);

}  // namespace MovingMap
