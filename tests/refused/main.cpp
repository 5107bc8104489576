// What it costs to refuse an input: at most twice its size and 1 MiB of heap, and with --time also
// 1 s for 10 MiB. Prints a line for each way to be refused and ends non-zero when one costs more.
#include <Orlek/FileSystem/ZipFile.h>
#include <Orlek/Geodetic/HeightMap.h>
#include <Orlek/Misc/Property.h>
#include <Orlek/OpenGL/TextureFont.h>
#include <Orlek/OpenGL/TextureFontSdf.h>
#include <Orlek/XML/XmlDocument.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "files/ZipBuilder.h"
#include "network/Http.h"
#include "network/PackageFraming.h"
#include "support/Capture.h"
#include "support/Heap.h"
#include "support/TempDir.h"
#include "support/WholeText.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;

constexpr double mostHeapPerByte = 2.0;
constexpr double heapBeside = 1 << 20;
constexpr double mostSecondsFor10MiB = 1.0;
constexpr double tenMiB = 10 << 20;

std::string repeated(std::string_view piece, std::size_t size) {
    std::string text;
    text.reserve(size + piece.size());
    while (text.size() < size) {
        text += piece;
    }
    return text;
}

std::string noise(std::size_t size) {
    std::mt19937 random(7);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() % 255 + 1);
    }
    return bytes;
}

/// True when it refuses; given the path of a file and its bytes.
using Reader = bool (*)(const std::string& path, const std::string& bytes);

struct Input {
    const char* name;
    Reader refuses;
    std::string file;  ///< Its name, which some readers go by.
    std::function<std::string(std::size_t)> bytes;
};

bool xmlRefuses(const std::string& path, const std::string& /*bytes*/) {
    return !Orlek::XML::XmlDocument().read(path);
}

bool propertiesRefuse(const std::string& path, const std::string& /*bytes*/) {
    return !Orlek::Misc::Property::instance().readXmlFile(path);
}

bool zipRefuses(const std::string& path, const std::string& /*bytes*/) {
    unsigned size = 0;
    unsigned char* const content = Orlek::FileSystem::ZipFile(path).readFirstFile(size);
    std::free(content);
    return content == nullptr;
}

bool terrainRefuses(const std::string& path, const std::string& /*bytes*/) {
    Orlek::Geodetic::HeightMap map;
    map.setDataPath(path.substr(0, path.rfind('/')));
    map.loadData();
    unsigned char x = 0;
    unsigned char y = 0;
    unsigned char z = 0;
    while (!map.getNormal(0.5, 0.5, false, false, x, y, z)) {
    }
    map.getNormal(45.5, 6.5, true, false, x, y, z);
    return z == 0 || x == 128;  // not loaded, or not even registered
}

bool fontsRefuse(const std::string& path, const std::string& /*bytes*/) {
    return !Orlek::OpenGL::TextureFont().load(path.c_str(), 16) &&
           !Orlek::OpenGL::TextureFontSdf().load(path.c_str(), 16);
}

bool noPackages(const std::string& /*path*/, const std::string& bytes) {
    Orlek::Detail::PackageFraming framing;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto room = framing.room();
        const std::size_t count = std::min(room.size(), bytes.size() - at);
        std::memcpy(room.data(), bytes.data() + at, count);
        framing.added(count);
        at += count;
        if (framing.next().state == Orlek::Detail::PackageFraming::State::package) {
            return false;
        }
    }
    return true;
}

bool noHttpBody(const std::string& /*path*/, const std::string& bytes) {
    return Orlek::Detail::httpBody(bytes).empty();
}

std::string lateBroken(std::string_view piece, std::size_t size) {
    return std::string("<a>") + repeated(piece, size) + "</b>";
}

// Blocks of content that does not get smaller, then one of a kind that there is not. The content
// shall be longer.
std::string brokenArchive(std::size_t size, std::size_t promised) {
    constexpr std::size_t block = 65535;
    std::string stream = storedDeflate(noise(size / block * block));
    stream[stream.size() - block - 5] = '\0';  // not the last one
    return archiveOf(stream + '\7', promised);
}

std::string cutDted(std::size_t size) {
    DtedLabel label = dtedLabelAt(45, 6);
    label.numLat = label.numLon = "9999";
    std::string file = label.text();
    file.resize(std::max<std::size_t>(size, 3428), ' ');
    return file;
}

std::vector<Input> inputs() {
    const std::string tile = "N45E006.SRTMGL3.hgt.zip";
    return {
        {"XML: noise", xmlRefuses, "in.xml", noise},
        {"XML: elements in elements", xmlRefuses, "in.xml",
         [](std::size_t n) { return repeated("<a>", n); }},
        {"XML: elements, then an end that fits none", xmlRefuses, "in.xml",
         [](std::size_t n) { return lateBroken("<b/>", n); }},
        {"XML: attributes, the last one twice", xmlRefuses, "in.xml",
         [](std::size_t n) {
             return std::string("<a>") + repeated("<b c='1' d='2' e='3'/>", n) +
                    "<b c='1' c='2'/></a>";
         }},
        {"XML: 256 attributes, then too many", xmlRefuses, "in.xml",
         [](std::size_t n) {
             std::string tag = "<b";
             for (int i = 100; i < 356; ++i) {
                 tag += " a" + std::to_string(i) + "=''";
             }
             return std::string("<a>") + repeated(tag + "/>", n) + tag + " b=''/></a>";
         }},
        {"XML: a value without an end", xmlRefuses, "in.xml",
         [](std::size_t n) { return std::string("<a b=\"") + repeated("x", n); }},
        {"XML: a name without an end", xmlRefuses, "in.xml",
         [](std::size_t n) { return std::string("<") + repeated("x", n); }},
        {"XML: a comment without an end", xmlRefuses, "in.xml",
         [](std::size_t n) { return std::string("<a/><!--") + repeated("-", n); }},
        {"XML: references, the last one without an end", xmlRefuses, "in.xml",
         [](std::size_t n) {
             return std::string("<a>") + repeated("&#65;&amp;&x", n) + "&#1</a>";
         }},
        {"XML: a zero byte at the end", xmlRefuses, "in.xml",
         [](std::size_t n) { return lateBroken("<b/>", n) + std::string(1, '\0'); }},
        {"settings: noise", propertiesRefuse, "in.xml", noise},
        {"settings: groups without an end", propertiesRefuse, "in.xml",
         [](std::size_t n) {
             return std::string("<Properties>") +
                    repeated("<g><Property key='a' value='b'/></g>", n);
         }},
        {"ZIP: noise", zipRefuses, "in.zip", noise},
        {"ZIP: an entry that is cut", zipRefuses, "in.zip",
         [](std::size_t n) {
             return localHeader({.compressedSize = static_cast<std::uint32_t>(n + 1),
                                 .uncompressedSize = static_cast<std::uint32_t>(n)}) +
                    noise(n);
         }},
        {"ZIP: more content than deflate can hold", zipRefuses, "in.zip",
         [](std::size_t n) {
             constexpr std::size_t mostThatCannot = 4000000;  // a header promises 4 GiB at most
             return archiveOf(storedDeflate(noise(std::min(n, mostThatCannot))), 0xFFFFFFFF);
         }},
        {"ZIP: an entry that is broken at its end", zipRefuses, "in.zip",
         [](std::size_t n) { return brokenArchive(n, n); }},
        {"DTED: noise", terrainRefuses, "N45E006.DT1", noise},
        {"DTED: fewer records than promised", terrainRefuses, "N45E006.DT1", cutDted},
        {"SRTM: noise", terrainRefuses, tile, noise},
        {"SRTM: a size that no tile has", terrainRefuses, tile,
         [](std::size_t n) { return archiveOf(storedDeflate(noise(n)), n); }},
        {"SRTM: a tile that is broken at its end", terrainRefuses, tile,
         [](std::size_t) { return brokenArchive(2884802, 2884802); }},
        {"fonts: noise", fontsRefuse, "in.ttf", noise},
        {"fonts: a font that is cut, then noise", fontsRefuse, "in.ttf",
         [](std::size_t n) {
             return wholeText("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf").substr(0, 4096) +
                    noise(n);
         }},
        {"packages: noise", noPackages, "in", noise},
        {"packages: longer than any", noPackages, "in",
         [](std::size_t n) {
             return repeated(
                 std::string("\0\0\x03\x12\x01\0\0\0\xFF\xFF\xFF\x7F", 12) + std::string(12, '\0'),
                 n);
         }},
        {"HTTP: an answer without an empty line", noHttpBody, "in",
         [](std::size_t n) { return repeated("HTTP/1.1 200 OK\r\n", n); }},
    };
}

bool measure(const Input& input, std::size_t size, bool timed) {
    const TempDir dir;
    const std::string bytes = input.bytes(size);
    const std::string path = dir.write(input.file, bytes);
    const auto n = static_cast<double>(bytes.size());
    bool refused = false;
    std::size_t heap = 0;
    std::chrono::duration<double> taken{};
    captureStderr([&] {
        captureStdout([&] {
            const auto start = std::chrono::steady_clock::now();
            startHeapPeak();
            refused = input.refuses(path, bytes);
            heap = heapPeak();
            taken = std::chrono::steady_clock::now() - start;
        });
    });
    const double perByte = (static_cast<double>(heap) - heapBeside) / n;
    const double secondsFor10MiB = taken.count() / n * tenMiB;
    const bool holds =
        refused && perByte <= mostHeapPerByte && (!timed || secondsFor10MiB <= mostSecondsFor10MiB);
    std::printf("%-52s %6.2f MiB, heap %5.2f of it, %6.3f s for 10 MiB%s%s\n", input.name,
                n / (1 << 20), static_cast<double>(heap) / n, secondsFor10MiB,
                refused ? "" : ", NOT REFUSED", holds ? "" : "   <-- out of its bound");
    return holds;
}

}  // namespace

int main(int argc, char** argv) {
    const bool timed = argc == 2 && std::strcmp(argv[1], "--time") == 0;
    if (argc > 1 && !timed) {
        std::fprintf(stderr, "Usage: %s [--time]\n", argv[0]);
        return 2;
    }
    const std::size_t size = std::size_t{timed ? 10U : 2U} << 20U;
    bool all = true;
    for (const Input& input : inputs()) {
        all = measure(input, size, timed) && all;
    }
    return all ? 0 : 1;
}
