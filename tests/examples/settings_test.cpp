// Settings of the moving map from session to session: who wins, what comes back, what is refused.
#include <algorithm>
#include <string>
#include <utility>

#include "MovingMapRun.h"

namespace {

using OrlekSupport::Image;
using OrlekTest::contents;
using OrlekTest::Outcome;

class Settings : public OrlekTest::MovingMapRun {
protected:
    std::string write(const std::string& properties) const {
        return mDir.write("map.xml", "<Properties>" + properties + "</Properties>\n");
    }

    static std::string property(const std::string& key, const std::string& value) {
        return "<Property key=\"" + key + "\" value=\"" + value + "\" />";
    }
};

bool same(const Image& one, const Image& other) {
    return one.width == other.width && one.rgba == other.rgba;
}

TEST_F(Settings, comeBackAfterAWindow) {
    if (!hasScreen()) {
        GTEST_SKIP() << "no xvfb-run (packages xvfb, xauth): settings are not kept by a window";
    }
    const std::string config = "--config " + mDir.path("map.xml") + " ";
    const std::string changed =
        "--range 8 --headingup --distances km --altitudes m --airspace none --centre 36.3,-84.2 ";
    const Outcome first = runInWindow("--frames 2 " + config + changed + mNoTiles);
    ASSERT_EQ(first.status, 0) << first.err;
    const std::string kept = contents(mDir.path("map.xml"));
    ASSERT_FALSE(kept.empty());

    const Image plain = draw(mNoTiles);
    EXPECT_TRUE(same(draw(config), draw(changed + mNoTiles)));
    EXPECT_FALSE(same(draw(config), plain));
    EXPECT_TRUE(same(draw(config + "--range 4 --northup --distances nm --altitudes FT "
                                   "--airspace '' --centre ''"),
                     plain))
        << "the command line wins";
    EXPECT_EQ(contents(mDir.path("map.xml")), kept) << "pictures write no settings";
    ASSERT_EQ(runInWindow("--frames 2 " + config).status, 0);
    EXPECT_EQ(contents(mDir.path("map.xml")), kept);
}

TEST_F(Settings, thatCannotBeUsedAreNamedAndKept) {
    const std::pair<std::string, std::string> bad[] = {
        {"View,range", "wide"},          {"View,centre", "36.3"},
        {"View,headingUp", "perhaps"},   {"Units,distance", "miles"},
        {"Units,altitude", "fathoms"},   {"Colours,route", "red&#10;ish"},
        {"Map,font", "/nowhere.ttf"},    {"Map,route", "/nowhere.txt"},
        {"Map,imageBounds", "1,2,3"},    {"Map,imageShare", "2"},
        {"Colours,training", "#12345G"},
    };
    std::string properties;
    for (const auto& [key, value] : bad) {
        const std::string section = key.substr(0, key.find(','));
        properties += "<" + section + ">" + property(key.substr(key.find(',') + 1), value) + "</" +
                      section + ">";
    }
    const std::string config = "--config " + write(properties);
    const Outcome outcome =
        run("--width 640 --height 480 --out " + mDir.path("bad.png") + " " + config + mNoTiles);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), std::ssize(bad))
        << outcome.err;
    for (auto [key, value] : bad) {
        key[key.find(',')] = '.';
        std::string says = "map.xml: " + key + ": '" + value + "'";
        if (const std::size_t at = says.find("&#10;"); at != std::string::npos) {
            says.replace(at, 5, "?");
        }
        EXPECT_NE(outcome.err.find(says), std::string::npos) << says << "\n" << outcome.err;
    }
    EXPECT_TRUE(same(OrlekSupport::readPng(mDir.path("bad.png")), draw(mNoTiles)));
    if (hasScreen()) {
        ASSERT_EQ(runInWindow("--frames 1 " + config + mNoTiles).status, 0);
        EXPECT_NE(contents(mDir.path("map.xml")).find("/nowhere.ttf"), std::string::npos);
    }
}

TEST_F(Settings, ofABrokenFileAreLeftAlone) {
    const std::string broken = "<Properties><View>";
    const std::string config = "--config " + mDir.write("map.xml", broken) + mNoTiles;
    const Outcome outcome =
        hasScreen() ? runInWindow("--frames 1 " + config) : run("--out x.png " + config);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.err.find("map.xml cannot be read"), std::string::npos) << outcome.err;
    EXPECT_EQ(contents(mDir.path("map.xml")), broken);
}

TEST_F(Settings, thatCannotBeWrittenAreAFailure) {
    if (!hasScreen()) {
        GTEST_SKIP() << "no xvfb-run (packages xvfb, xauth): settings are not kept by a window";
    }
    const Outcome outcome = runInWindow("--frames 1 --config /nowhere/map.xml" + mNoTiles);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.err.find("cannot write the settings to /nowhere/map.xml"), std::string::npos)
        << outcome.err;
}

TEST_F(Settings, haveColoursAndPathsBesideTheFile) {
    mDir.write("north.txt", "S,36.25,-84.25,flyby\nN,36.35,-84.25,flyby\n");
    const Image image =
        draw("--along 3 --config " +
             write("<Colours>" + property("route", "#00ff10") + "</Colours><Map>" +
                   property("route", "north.txt") + property("airspace", "none") + "</Map>") +
             mNoTiles);
    EXPECT_EQ(image.at(320, 196 - 60), (std::array<int, 4>{0, 255, 16, 255}));
}

// Restricted airspace over the left part of training airspace over all: there only the former.
TEST_F(Settings, overlappingAirspaceIsFilledOnce) {
    const std::string restricted =
        "airspace,R,restricted,GND,FL95\npoint,36.2,-84.35\npoint,36.4,-84.35\n"
        "point,36.4,-84.26\npoint,36.2,-84.26\n";
    const std::string training =
        "airspace,T,training,GND,FL95\npoint,36.2,-84.35\npoint,36.4,-84.35\n"
        "point,36.4,-84.15\npoint,36.2,-84.15\n";
    const auto picture = [&](const std::string& airspace) {
        return draw("--lat 36.3 --lon -84.25 --heading 0 --range 1 --airspace " +
                    mDir.write("a.txt", airspace) + mNoTiles);
    };
    const Image both = picture(training + restricted);
    const Image left = picture(restricted);
    const Image all = picture(training);
    const auto sameAt = [](const Image& a, const Image& b, int x, int y) {
        bool equal = true;
        for (int i = 0; i < 256; ++i) {
            equal = equal && a.at(x + i % 16, y + i / 16) == b.at(x + i % 16, y + i / 16);
        }
        return equal;
    };
    EXPECT_TRUE(sameAt(both, left, 120, 96));
    EXPECT_FALSE(sameAt(both, all, 120, 96));
    EXPECT_TRUE(sameAt(both, all, 520, 330));
    EXPECT_FALSE(sameAt(both, left, 520, 330));
}

}  // namespace
