// The settings: one instance for the process, so each test uses keys of its own.
#include <Orlek/Misc/Property.h>
#include <Orlek/XML/XmlDocument.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "support/Capture.h"
#include "support/OwnNetwork.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace {

using Orlek::Misc::Property;
using namespace OrlekTest;

using Texts = std::map<std::string, std::string>;

Property& settings() {
    return Property::instance();
}

void set(const Texts& texts) {
    for (const auto& [key, value] : texts) {
        settings().setString(key, value);
    }
}

// First, as it needs an instance without settings.
TEST(Property, WritesKeysInTheirOrderNestedByTheirDots) {
    const TempDir dir;
    const std::string path = dir.path("order.xml");
    captureStdout([&] { settings().setConfigFile(path); });  // which reads it, in vain
    EXPECT_TRUE(settings().writeXmlFile());
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
    EXPECT_EQ(wholeText(path), declaration + "<Properties />\n");

    const Texts texts = {{"b.x", "1"},      {"a", "2"},     {"b.y", "3"},
                         {"B.z", "4"},      {"b.c.d", "5"}, {"b-e.f", "6"},
                         {"b..twice", "7"}, {"b.c", "8"},   {"b.", "9"}};
    set(texts);
    EXPECT_TRUE(settings().writeXmlFile());
    EXPECT_EQ(wholeText(path), declaration + R"(<Properties>
    <B>
        <Property key="z" value="4" />
    </B>
    <Property key="a" value="2" />
    <b-e>
        <Property key="f" value="6" />
    </b-e>
    <b>
        <Property key="" value="9" />
        <Property key="c" value="8" />
        <c>
            <Property key="d" value="5" />
        </c>
        <Property key="x" value="1" />
        <Property key="y" value="3" />
    </b>
    <Property key="b..twice" value="7" />
</Properties>
)");
    Orlek::XML::XmlDocument document;
    EXPECT_TRUE(document.read(path) && document.write(dir.path("document.xml")));
    EXPECT_EQ(wholeText(dir.path("document.xml")), wholeText(path));
}

// Python's parser takes nothing that is no XML. Before any control character is set, for that
// reason.
TEST(Property, FilesAreSharedWithOtherPrograms) {
    const TempDir dir;
    try {
        shell("python3 -c 'import xml.etree.ElementTree' 2>&1");
    } catch (const std::runtime_error&) {
        GTEST_SKIP() << "no python3 with its XML parser";
    }
    const std::string script = dir.write("share.py", R"(
import sys, xml.etree.ElementTree as ET
def walk(element, prefix):
    for child in element:
        if child.tag == 'Property':
            print(ascii(prefix + child.get('key')), ascii(child.get('value')), child.get('escape'))
        else:
            walk(child, prefix + child.tag + '.')
walk(ET.parse(sys.argv[1]).getroot(), '')
root = ET.Element('settings')
group = ET.SubElement(ET.SubElement(root, 'theirs'), '\u00e4')
ET.SubElement(group, 'Property', key='t\u20ac<', value=' "\'\n\t&\U0001F680')
ET.ElementTree(root).write(sys.argv[2], encoding='UTF-8', xml_declaration=True)
)");
    set({{"o.\xC3\xA4.k", " \xE2\x82\xAC \"'<>&\r\n\t "},
         {"o.x y.z", "1"},
         {"o.p:q.r", "2"},
         {"o.Property.a", "3"},
         {"o.1.a", "4"},
         {"o.s", "\xFF%"},
         {"o.t", "\xEF\xBF\xBE"}});
    ASSERT_TRUE(settings().writeXmlFile(dir.path("ours.xml")));
    const std::string seen = shell("PYTHONUTF8=1 python3 " + script + " " + dir.path("ours.xml") +
                                   " " + dir.path("theirs.xml"));
    for (const std::string line :
         {R"('o.\xe4.k' ' \u20ac "\'<>&\r\n\t ' None)", "'o.x y.z' '1' None", "'o.p:q.r' '2' None",
          "'o.Property.a' '3' None", "'o.1.a' '4' None", "'o.s' '%FF%25' percent",
          "'o.t' '%EF%BF%BE' percent"}) {
        EXPECT_NE(seen.find(line + "\n"), std::string::npos) << line << " is not in\n" << seen;
    }
    captureStdout([&] { EXPECT_TRUE(settings().readXmlFile(dir.path("theirs.xml"))); });
    EXPECT_EQ(settings().getString("theirs.\xC3\xA4.t\xE2\x82\xAC<", ""),
              " \"'\n\t&\xF0\x9F\x9A\x80");
}

TEST(Property, ReadingAddsToWhatIsThereAndPrintsIt) {
    const TempDir dir;
    settings().setString("read.kept", "kept");
    settings().setString("read.debug", "old");
    const std::string path = dir.write("in.xml", R"(<any><read>
  <Property key="debug" value="new"/><!-- c -->text
  <Colors><Property value="1" key="text"/><Deeper/></Colors><Property/></read>
  <property><Property key="case" value=" a&#10;b "><ignored/></Property></property></any>)");
    EXPECT_EQ(captureStdout([&] { EXPECT_TRUE(settings().readXmlFile(path)); }),
              "Property <read.debug> <new>\nProperty <read.Colors.text> <1>\nProperty <read.> <>\n"
              "Property <property.case> < a\nb >\n");
    EXPECT_EQ(settings().getString("read.kept", ""), "kept");
    EXPECT_EQ(settings().getString("read.debug", ""), "new");
    EXPECT_EQ(settings().getString("read.", "none"), "");

    const std::string missing = dir.path("missing.xml");
    const std::string lines = "Error reading <" + missing +
                              "> :\nRow 1 Col 1 Error Failed to open file\n"
                              "Error reading XML file <" +
                              missing + ">!\n";
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(settings().readXmlFile(missing)); }), lines);
    EXPECT_EQ(captureStdout([&] { settings().setConfigFile(missing); }), lines);
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(settings().readXmlFile()); }), lines);
}

// The name of the group stands once in the file, but in each of the keys.
TEST(Property, ALongGroupNameAboveManySettingsIsRefused) {
    const TempDir dir;
    const std::string group(100'000, 'g');
    std::string leaves;
    for (int i = 0; i < 10'000; ++i) {
        leaves += "<Property key='" + std::to_string(i) + "'/>";
    }
    const std::string path =
        dir.write("in.xml", "<r><" + group + ">" + leaves + "</" + group + "></r>");
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(settings().readXmlFile(path)); }),
              "Error reading XML file <" + path + ">!\n");
    EXPECT_EQ(settings().getString(group + ".1", "none"), "none");
}

TEST(Property, TextsAreConvertedWhenTheyAreAskedFor) {
    const std::tuple<std::string, int, double, bool> rows[] = {
        {"true", 0, 0, true},    {"TRUE", 0, 0, true},     {"True", 0, 0, true},
        {"tRUE", 0, 0, false},   {"yes", 0, 0, false},     {"1", 1, 1, false},
        {"0x10", 0, 16, false},  {"42abc", 42, 42, false}, {" -7.25", -7, -7.25, false},
        {"1e3", 1, 1000, false}, {"010", 10, 10, false},   {"2,5", 2, 2, false},
        {"", 0, 0, false}};
    for (const auto& [text, asInt, asDouble, asSwitch] : rows) {
        settings().setString("convert", text);
        EXPECT_EQ(settings().getInt("convert", 99), asInt) << text;
        EXPECT_EQ(settings().getDouble("convert", 99), asDouble) << text;
        EXPECT_EQ(settings().getSwitch("convert", !asSwitch), asSwitch) << text;
    }
    EXPECT_EQ(settings().getInt("absent", 99), 99);
    EXPECT_EQ(settings().getDouble("absent", 0.5), 0.5);
    EXPECT_TRUE(settings().getSwitch("absent", true));

    settings().setInt("int", -12);
    settings().setSwitch("switch", false);
    EXPECT_EQ(settings().getString("int", "") + settings().getString("switch", ""), "-12false");
}

TEST(Property, NumbersAreWrittenAsByAStreamOfTheClassicLocale) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double value :
         {0.0, -0.0, 5.0, 3.14159265, 0.000123456789, 1e-5, 999999.4, 999999.5, 1e6, 1234567.0,
          100000.0, -1.5, 1e300, 5e-324, -1.7e-308, 1.0 / 3, infinity, -infinity}) {
        std::ostringstream stream;
        stream << value;
        settings().setDouble("double", value);
        EXPECT_EQ(settings().getString("double", ""), stream.str());
    }
}

TEST(Property, NumbersHaveAPointInEveryLocale) {
    const TempDir dir;
    try {
        shell("localedef -i de_DE -f UTF-8 " + dir.path("de_DE.UTF-8") + " 2>&1");
    } catch (const std::runtime_error&) {
        GTEST_SKIP() << "localedef makes no locale here";
    }
    setenv("LOCPATH", dir.path().c_str(), 1);
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    settings().setDouble("locale", 2.5);
    EXPECT_EQ(settings().getString("locale", ""), "2.5");
    EXPECT_EQ(settings().getDouble("locale", 0), 2.5);
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
}

std::vector<std::string> split(const std::string& text) {
    std::vector<std::string> pieces;
    std::istringstream rest(text);
    for (std::string piece; std::getline(rest, piece, '|');) {
        pieces.push_back(piece);
    }
    return pieces;
}

TEST(Property, EveryKeyAndValueComesBack) {
    using namespace std::string_literals;
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte) {
        everyByte += static_cast<char>(byte);
    }
    const std::string texts =
        "| |plain| leading and trailing |\ttab\r\nlines\n\r|\"'<>&|'only'|&amp;&#x41;&bogus;|]]>|"
        "<!-- -->|\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\x80|\xEF\xBB\xBFmark|\xEF\xBF\xBE|"
        "\x7F\x01\x1B[0m|\xC3|\xE2\x82|\xF0|cut \xC3\"|\xED\xA0\x80|\xC0\xAF|%|%C3|%25\xFF%";
    const std::string keys =
        "|.|..|.a|a.|a..b|...a...|Property|Property.x|a.Property|a.Property.b|property.x|"
        "1a.b|a b.c|a.b c|-a.b|a<b.c|a:b.c|xml.a|\xC3\xA4.\xC3\xB6|\xEF\xBB\xBFm.a|"
        "a\xC3.b|a.\xC3|\xC2\xB7.a|a\n.b";
    Texts rows = {{"value.every byte", everyByte},
                  {"a\0.b"s, "zero\0byte"s},
                  {"value.long", std::string(1U << 20U, 'm')}};
    for (const std::string& text : split(texts)) {
        rows["value." + std::to_string(rows.size())] = text;
    }
    for (const std::string& key : split(keys)) {
        rows[key] = "value of " + key;
    }
    for (const std::size_t dots : {254U, 255U, 100'000U}) {
        std::string key(2 * dots + 1, 's');
        for (std::size_t i = 1; i < key.size(); i += 2) {
            key[i] = '.';
        }
        rows[key] = std::to_string(dots);
    }
    for (const std::size_t length : {1024U, 1025U, 1U << 20U}) {
        rows[std::string(length, 'g') + ".a"] = std::to_string(length);
    }
    const TempDir dir;
    set(rows);
    ASSERT_TRUE(settings().writeXmlFile(dir.path("back.xml")));
    for (const auto& [key, value] : rows) {
        settings().setString(key, "spoiled");
    }
    captureStdout([&] { EXPECT_TRUE(settings().readXmlFile(dir.path("back.xml"))); });
    for (const auto& [key, value] : rows) {
        EXPECT_TRUE(settings().getString(key, "lost") == value) << key.substr(0, 60);
    }
}

}  // namespace
