// The library writes whatever the server answers, an error page too: it goes beside the file and
// takes its place when it is good.
#include "Fetch.h"

#include <Orlek/FileSystem.h>
#include <Orlek/Network.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Number.h"
#include "Png.h"

namespace MovingMap {

namespace {

namespace fs = std::filesystem;

// What DTED's header promises: columns and rows, as digits at 47 and 51 (MIL-PRF-89020B).
bool isWholeDted(const std::string& path) {
    constexpr std::uintmax_t headers = 3428;
    char counts[9] = {};
    std::ifstream file(path, std::ios::binary);
    file.seekg(47).read(counts, 8);
    const auto columns = OrlekSupport::parseNumber(std::string(counts, 4), 2, 9999);
    const auto rows = OrlekSupport::parseNumber(std::string(counts + 4, 4), 2, 9999);
    return columns && rows &&
           fs::file_size(path) >= headers + static_cast<std::uintmax_t>(*columns) *
                                                (12 + 2 * static_cast<std::uintmax_t>(*rows));
}

// A connection that breaks leaves half a file.
bool isWhole(const std::string& path, const std::string& name) {
    if (name.ends_with(".zip")) {
        unsigned int size = 0;
        unsigned char* const content = Orlek::FileSystem::ZipFile(path).readFirstFile(size);
        std::free(content);
        return content != nullptr;
    }
    return !name.ends_with(".DT1") || isWholeDted(path);
}

// Throws when the file is not what was asked for.
void check(const std::string& path, const std::string& name) {
    std::ifstream file(path, std::ios::binary);
    const int first = file.get();
    if (!file) {
        throw std::runtime_error("the answer has no file");
    }
    if (name.ends_with(".png")) {
        OrlekSupport::readPng(path);
    } else if (first == '<') {
        throw std::runtime_error("the answer is a page, no file");
    } else if (!isWhole(path, name)) {
        throw std::runtime_error("the answer is no whole tile");
    }
}

void download(const Fetch& wanted, const std::string& part) {
    const fs::path folder = fs::path(wanted.file).parent_path();
    if (!folder.empty()) {
        fs::create_directories(folder);
    }
    if (!Orlek::Network::Network::getFileHttp(wanted.url, part)) {
        throw std::runtime_error("no answer");
    }
    check(part, wanted.file);
    fs::rename(part, wanted.file);
}

}  // namespace

std::vector<Fetch> takeFetches(std::vector<char*>& arguments) {
    std::vector<Fetch> fetches;
    const auto isFetch = [](const char* argument) {
        return std::string_view(argument) == "--fetch";
    };
    for (auto found = std::find_if(arguments.begin(), arguments.end(), isFetch);
         found != arguments.end();
         found = std::find_if(arguments.begin(), arguments.end(), isFetch)) {
        if (arguments.end() - found < 3) {
            throw std::runtime_error("--fetch needs a URL and a FILE");
        }
        fetches.push_back({found[1], found[2]});
        arguments.erase(found, found + 3);
    }
    return fetches;
}

namespace {

bool fetch(const Fetch& wanted) {
    const std::string part = wanted.file + ".part-" + std::to_string(getpid());
    std::error_code ignored;
    fs::remove(part, ignored);
    try {
        download(wanted, part);
        std::printf("fetched %s\n", wanted.file.c_str());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-movingmap: cannot fetch %s: %s\n", wanted.url.c_str(),
                     error.what());
        fs::remove(part, ignored);
    }
    return fs::exists(wanted.file, ignored);
}

}  // namespace

std::vector<std::string> fetchAll(const std::vector<Fetch>& fetches) {
    std::vector<std::string> missing;
    for (const Fetch& wanted : fetches) {
        if (!fetch(wanted)) {
            missing.push_back(wanted.file);
        }
    }
    return missing;
}

bool samePath(const std::string& a, const std::string& b) {
    return !a.empty() && !b.empty() &&
           fs::absolute(a).lexically_normal() == fs::absolute(b).lexically_normal();
}

}  // namespace MovingMap
