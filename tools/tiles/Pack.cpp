// An archive gets its name only after the library has read from the disk what went into it.
#include <Orlek/FileSystem/Directory.h>
#include <Orlek/FileSystem/ZipFile.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <set>

#include "Commands.h"
#include "Inventory.h"
#include "ProgressBar.h"
#include "ZipWriter.h"
#include "platform/AtomicFile.h"
#include "platform/DirectorySearch.h"
#include "platform/RegularFile.h"
#include "platform/WholeFile.h"
#include "terrain/tiles/SrtmSamples.h"

namespace OrlekTiles {

namespace {

using namespace Orlek::Detail;
using Orlek::FileSystem::Directory;
using Orlek::FileSystem::ZipFile;

[[noreturn]] void fail(const Reason& reason) {
    throw std::runtime_error(reason.word + ": " + reason.text);
}

[[noreturn]] void failBySystem(const std::string& word) {
    fail({word, std::strerror(errno)});
}

/// The samples of a raw tile, whose size is checked before they are read.
std::vector<char> readTile(const std::string& path) {
    RegularFile file;
    if (!file.open(path)) {
        failBySystem("unreadable");
    }
    if (!srtmGrid(file.size())) {
        fail(sizeReason("it", file.size()));
    }
    std::vector<char> samples;
    if (!readWholeFile(path, samples, file.size()) || samples.size() != file.size()) {
        failBySystem("unreadable");
    }
    return samples;
}

/// Whether the library would find the right cell for an archive of this name.
void checkName(const std::string& archive, std::size_t size) {
    HeightTile tile;
    if (!tile.parseName(archive)) {
        fail(nameReason(archive));
    }
    if (const auto misfit = fitReason(*srtmGrid(size), tile.lowRes())) {
        fail(*misfit);
    }
    if (!canBeAsked(tile)) {
        fail(noSuchCell);
    }
}

bool readsBack(const std::string& archive, const std::vector<char>& samples) {
    unsigned int size = 0;
    const std::unique_ptr<unsigned char, decltype(&std::free)> content(
        ZipFile(archive).readFirstFile(size), &std::free);
    return content != nullptr && size == samples.size() &&
           std::memcmp(content.get(), samples.data(), size) == 0;
}

void writeArchive(const std::string& archive, const std::string& entry,
                  const std::vector<char>& samples) {
    AtomicFile file;
    if (!file.open(archive) || !file.write(zipArchive(entry, {samples.data(), samples.size()}))) {
        failBySystem("cannot write " + archive);
    }
    if (!readsBack(file.draftPath(), samples)) {
        fail({"cannot verify " + archive, "what was written cannot be read back"});
    }
    if (!file.commit()) {
        failBySystem("cannot write " + archive);
    }
}

class Packer {
public:
    Packer(const Arguments& arguments, Console& console)
        : mOut(arguments.value("--out")), mForce(arguments.has("--force")), mConsole(console) {
        if (mOut && !Directory::createDirectoryRecursive(*mOut)) {
            throw std::runtime_error(*mOut + ": this directory cannot be made");
        }
    }

    void pack(const std::string& path) {
        const std::string name = std::filesystem::path(path).filename().string();
        const std::string archive = (mOut ? *mOut + "/" + name : path) + ".zip";
        const std::vector<char> samples = readTile(path);
        checkName(archive, samples.size());
        if (!mWritten.insert(archive).second) {
            fail({"already there", archive + " was made of another of the files"});
        }
        if (!mForce && fileKind(archive) != FileKind::missing) {
            fail({"already there", archive + " (--force replaces it)"});
        }
        writeArchive(archive, name, samples);
        mConsole.printFields({archive});
        mConsole.finish();
    }

private:
    std::optional<std::string> mOut;
    bool mForce;
    Console& mConsole;
    std::set<std::string> mWritten;
};

}  // namespace

Outcome pack(const Arguments& arguments, Console& console) {
    const std::vector<std::string>& files = arguments.operands();
    if (files.empty()) {
        throw UsageError("a file is needed");
    }
    Packer packer(arguments, console);
    Outcome outcome = allWell;
    OrlekSupport::ProgressBar progress(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        try {
            progress.hide();
            packer.pack(files[i]);
        } catch (const std::runtime_error& error) {
            Console::note(files[i] + ": " + error.what());
            outcome = notDone;
        }
        progress.show(i + 1);
    }
    return outcome;
}

}  // namespace OrlekTiles
