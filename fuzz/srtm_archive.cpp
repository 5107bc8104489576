// Archives of SRTM tiles: loading and querying whatever bytes come under the name of a tile.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "MemoryFile.h"
#include "TileQueries.h"

namespace {

/// A directory for one link, the name of a tile that leads to the input.
class NamedLink {
public:
    NamedLink() {
        char pattern[] = "/tmp/orlek-fuzz-XXXXXX";
        if (mkdtemp(pattern) == nullptr) {
            std::abort();
        }
        mDirectory = pattern;
    }
    ~NamedLink() {
        unlink(path().c_str());
        rmdir(mDirectory.c_str());
    }
    NamedLink(const NamedLink&) = delete;
    NamedLink& operator=(const NamedLink&) = delete;

    void leadTo(const std::string& target) const {
        unlink(path().c_str());
        if (symlink(target.c_str(), path().c_str()) != 0) {
            std::abort();
        }
    }
    std::string path() const { return mDirectory + "/N45E006.SRTMGL3.hgt.zip"; }

private:
    std::string mDirectory;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const NamedLink link;
    const MemoryFile file(data, size);
    link.leadTo(file.path());
    Orlek::Detail::HeightTile tile;
    if (!tile.parseName(link.path())) {
        std::abort();
    }
    tile.load();
    queryTile(tile, 45.0, 6.0);
    return 0;
}
