// Settings of the moving map from session to session: who wins, what comes back, what is refused.
#include <string>
#include <utility>

#include "ProgramRun.h"

namespace {

using OrlekTest::Image;
using OrlekTest::Outcome;
using OrlekTest::wholeText;

class Settings : public OrlekTest::ProgramRun {
protected:
    static std::string group(const std::string& name, const std::string& key,
                             const std::string& value) {
        return "<" + name + "><Property key=\"" + key + "\" value=\"" + value + "\" /></" + name +
               ">";
    }
    /// The map with a settings file of these properties.
    std::string map(const std::string& properties) const {
        mDir.write("map.xml", "<Properties>" + properties + "</Properties>\n");
        return map();
    }
    /// The map with the settings file as it is.
    std::string map() const { return mMap + "--config " + mFile + " "; }

    const std::string mFile = mDir.path("map.xml");
    const std::string mMap = PROGRAM " --width 640 --height 480" + mNoTiles;
};

bool same(const Image& one, const Image& other) {
    return one.width == other.width && one.rgba == other.rgba;
}

TEST_F(Settings, comeBackAfterAWindow) {
    if (!hasScreen()) {
        GTEST_SKIP() << noScreen;
    }
    const std::string changed =
        "--range 8 --headingup --distances km --altitudes m --airspace none --centre 36.3,-84.2 ";
    const Outcome first =
        runInWindow(map(group("Map", "font", "/nowhere.ttf")) + "--frames 2 " + changed);
    ASSERT_EQ(first.status, 0) << first.err;
    std::string kept = wholeText(mFile);
    const std::size_t font = kept.find("/nowhere.ttf");
    ASSERT_NE(font, std::string::npos) << "what cannot be used is kept";
    mDir.write("map.xml", kept.replace(font, 12, ""));

    const Image again = draw(map());
    EXPECT_TRUE(same(again, draw(mMap + changed)));
    const Image won = draw(map() +
                           "--range 4 --northup --distances nm --altitudes FT --airspace '' "
                           "--centre ''");
    EXPECT_FALSE(same(again, won));
    EXPECT_TRUE(same(won, draw(mMap))) << "the command line wins";
    EXPECT_EQ(wholeText(mFile), kept) << "pictures write no settings";
    ASSERT_EQ(runInWindow(map() + "--frames 1").status, 0);
    EXPECT_EQ(wholeText(mFile), kept);
}

TEST_F(Settings, thatCannotBeUsedAreNamed) {
    const std::pair<std::string, std::string> bad[] = {
        {"View.range", "wide"},          {"View.centre", "36.3"},
        {"View.headingUp", "perhaps"},   {"Units.distance", "miles"},
        {"Units.altitude", "fathoms"},   {"Colours.route", "red&#10;ish"},
        {"Map.font", "/nowhere.ttf"},    {"Map.route", "/nowhere.txt"},
        {"Map.imageBounds", "1,2,3"},    {"Map.imageShare", "2"},
        {"Colours.training", "#12345G"},
    };
    std::string properties;
    for (const auto& [key, value] : bad) {
        const std::size_t dot = key.find('.');
        properties += group(key.substr(0, dot), key.substr(dot + 1), value);
    }
    const Outcome outcome = run(map(properties) + " --out " + mDir.path("bad.png"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("hatched"), std::string::npos) << outcome.out;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), std::ssize(bad))
        << outcome.err;
    for (const auto& [key, value] : bad) {
        const std::string shown = value[0] == 'r' ? "red?ish" : value;
        EXPECT_NE(outcome.err.find("map.xml: " + key + ": '" + shown + "'"), std::string::npos)
            << key << "\n"
            << outcome.err;
    }
    EXPECT_TRUE(same(OrlekSupport::readPng(mDir.path("bad.png")), draw(mMap)));
}

TEST_F(Settings, ofAWindowAreNotWrittenOverABrokenFileOrNowhere) {
    if (!hasScreen()) {
        GTEST_SKIP() << noScreen;
    }
    mDir.write("map.xml", "<Properties><View>");
    const Outcome broken = runInWindow(map() + "--frames 1");
    EXPECT_EQ(broken.status, 0) << broken.err;
    EXPECT_NE(broken.err.find("map.xml cannot be read"), std::string::npos) << broken.err;
    EXPECT_EQ(wholeText(mFile), "<Properties><View>");
    const Outcome nowhere = runInWindow(mMap + "--frames 1 --config /nowhere/map.xml");
    EXPECT_EQ(nowhere.status, 1) << nowhere.err;
    EXPECT_NE(nowhere.err.find("cannot write the settings to /nowhere/map.xml"), std::string::npos)
        << nowhere.err;
}

TEST_F(Settings, haveColoursAndPathsBesideTheFile) {
    mDir.write("north.txt", "S,36.25,-84.25,flyby\nN,36.35,-84.25,flyby\n");
    mDir.write("a.txt", "airspace,A,restricted,GND,FL95\ncircle,36.3,-84.25,5\n");
    const std::string route =
        group("Colours", "route", "#00ff10") + group("Map", "route", "north.txt");
    const std::string view = " --along 3 --range 1";
    const Image image = draw(map(route + group("Map", "airspace", "a.txt")) + view);
    EXPECT_EQ(image.at(320, 196 - 60), (std::array<int, 4>{0, 255, 16, 255}));
    EXPECT_FALSE(same(image, draw(map(route) + view)));
}

}  // namespace
