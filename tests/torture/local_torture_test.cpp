// Files, tiles, settings and polygons while one allocation or system call after the other fails.
#include <Orlek/FileSystem.h>
#include <Orlek/Geodetic/HeightMap.h>
#include <Orlek/Math/Polygon2D.h>
#include <Orlek/Misc/CmdLine.h>
#include <Orlek/Misc/Property.h>
#include <Orlek/OpenGL/Tesselator.h>
#include <Orlek/XML.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>

#include "Sweep.h"
#include "support/TempDir.h"
#include "support/WholeText.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Misc::Property;

// What the scenarios work on stands before anything fails.
const TempDir& dir() {
    static const TempDir fresh;
    return fresh;
}

const std::string& settingsPath() {
    static const std::string path = dir().path("settings/app.xml");
    return path;
}

std::string settingsText(const char* value) {
    return std::string("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<Properties>\n    <View>\n") +
           "        <Property key=\"range\" value=\"" + value + "\" />\n    </View>\n" +
           "    <Property key=\"units\" value=\"NM\" />\n</Properties>\n";
}

Came listDirectory() {
    const auto entries = Orlek::FileSystem::Directory(dir().path("tree")).entryList(true);
    const bool right = std::ranges::all_of(entries, [](const std::string& entry) {
        return entry.ends_with("/one") || entry.ends_with("/two");
    });
    return came(right && entries.size() == 2, right);
}

Came makeDirectories() {
    const std::string path = dir().path("made/of/some");
    const bool made = Orlek::FileSystem::Directory::createDirectoryRecursive(path);
    return came(made && Orlek::FileSystem::Directory::exists(path), !made);
}

const std::string content(5000, 'x');

Came readZip() {
    Orlek::FileSystem::ZipFile zip(dir().path("entry.zip"));
    unsigned int size = 1;
    unsigned char* const data = zip.readFile("tile.hgt", size);
    const bool right =
        data != nullptr && size == content.size() && std::memcmp(data, content.data(), size) == 0;
    std::free(data);
    return came(right, data == nullptr && size == 0);
}

// A tile that cannot be read has the elevation 0.
Came queryTiles() {
    Orlek::Geodetic::HeightMap map;
    map.setDataPath(dir().path("tiles"));
    map.loadData();
    unsigned char n[3] = {};
    for (int i = 0; i < 20000 && !map.getNormal(89.5, 179.5, false, false, n[0], n[1], n[2]); ++i) {
        std::this_thread::sleep_for(std::chrono::microseconds(20));
    }
    const double dted = map.getAltitude(45.25, 6.25, true, false);
    const double srtm = map.getAltitude(46.25, 6.25, true, false);
    return came(dted == 700 && srtm == 300,
                (dted == 700 || dted == 0) && (srtm == 300 || srtm == 0));
}

Came readSettings() {
    const bool read = Property::instance().readXmlFile(settingsPath());
    const std::string range = Property::instance().getString("View.range", "");
    return came(range == "new" && read, range == "old");
}

bool settingsWritten = false;

Came writeSettings() {
    settingsWritten = false;  // an exception leaves it so
    settingsWritten = Property::instance().writeXmlFile(settingsPath());
    return came(settingsWritten, true);
}

bool settingsAreWhole() {
    const std::string text = wholeText(settingsPath());
    const auto files =
        std::distance(std::filesystem::directory_iterator(dir().path("settings")), {});
    return files == 1 &&
           (text == settingsText("new") || (!settingsWritten && text == settingsText("old")));
}

Came writeXml() {
    Orlek::XML::XmlDocument document;
    Orlek::XML::XmlElement root("Properties");
    document.appendElement(root);
    Orlek::XML::XmlDocument copy(document);
    std::string text;
    copy.root().setAttributeDouble("range", 2.5);
    Orlek::XML::XmlElement element = copy.root();
    copy.print(element, text);
    const bool written = document.write(dir().path("document.xml"));
    const bool right = text == "<Properties range=\"2.5\" />\n";
    return came(right && written, right);
}

Orlek::Math::Polygon2D square(double at) {
    Orlek::Math::Polygon2D polygon;
    for (const auto& [x, y] : {std::pair{0, 0}, {4, 0}, {4, 4}, {0, 4}}) {
        polygon.addVertex(Orlek::Math::Vector2<double>(at + x, at + y));
    }
    return polygon;
}

Came cutPolygons() {
    const auto rings = square(0).boolOperation(square(2), Orlek::Math::Polygon2D::Intersection);
    return came(rings.size() == 1 && rings.front().vertexesD().size() == 4, false);
}

Came fillOutline() {
    Orlek::OpenGL::Tesselator tesselator;
    for (const auto& [x, y] : {std::pair{0, 0}, {4, 4}, {4, 0}, {0, 4}, {2, 6}}) {
        tesselator.addVertex(
            Orlek::Math::Vector2<float>(static_cast<float>(x), static_cast<float>(y)));
    }
    std::size_t vertices = 0;
    for (const auto& primitive : tesselator.tesselate().primitives) {
        vertices += primitive.vertices.size();
    }
    return came(vertices >= 6 && vertices < 100, vertices < 100);
}

TEST(Torture, Local) {
    dir().write("tree/one", "");
    dir().write("tree/deep/two", "");
    dir().write("entry.zip", archiveOf(content));
    dir().write("tiles/45/6.DT1", dtedFile(dtedLabelAt(45, 6), [](int, int) { return 700; }));
    dir().write("tiles/N46E006.SRTMGL3.hgt.zip", flatSrtmArchive(300));
    const auto oldSettings = [] {
        dir().write("settings/app.xml", settingsText("old"));
        Property::instance().setString("View.range", "new");
        Property::instance().setString("units", "NM");
    };
    const auto newSettings = [] {
        dir().write("settings/app.xml", settingsText("new"));
        Property::instance().setString("View.range", "old");
    };
    const Scenario scenarios[] = {
        {"list a directory", nothing, listDirectory, always},
        {"make directories", [] { std::filesystem::remove_all(dir().path("made")); },
         makeDirectories, always},
        {"read an archive", nothing, readZip, always},
        {"query tiles", nothing, queryTiles, always},
        // The parser loses the node that it is at.
        {"read settings", newSettings, readSettings, always, true},
        {"write settings", oldSettings, writeSettings, settingsAreWhole},
        {"write XML", nothing, writeXml, always, true},
        {"cut polygons", nothing, cutPolygons, always},
        {"fill an outline", nothing, fillOutline, always, true},
    };
    torture(scenarios);
}

}  // namespace
