// Documents: what is read, what is refused and how, and what is written, held against TinyXML's own
// load and save.
#include <Orlek/XML/XmlDocument.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <tinyxml.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/Capture.h"
#include "support/Memory.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace {

using Orlek::XML::XmlDocument;
using Orlek::XML::XmlElement;
using namespace OrlekTest;

std::string repeated(const std::string& piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += piece;
    }
    return text;
}

std::string nested(int depth) {
    return repeated("<a>", depth) + repeated("</a>", depth);
}

std::string withAttributes(int count) {
    std::string text = "<r>\n<a";
    for (int i = 0; i < count; ++i) {
        text.append(" a").append(std::to_string(i)).append("='1'");
    }
    return text + "/></r>";
}

// A failed read prints two lines and leaves the document as it was.
void expectRefused(const std::string& path, const std::string& secondLine) {
    XmlDocument document;
    XmlElement kept("kept");
    document.appendElement(kept);
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(document.read(path)); }),
              "Error reading <" + path + "> :\n" + secondLine + "\n");
    EXPECT_EQ(document.root().name(), "kept");
}

TEST(XmlDocument, WhatCannotBeOpenedIsRefused) {
    const TempDir dir;
    ASSERT_EQ(mkfifo(dir.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {dir.path("missing"), dir.path(), dir.path("pipe"),
                                    std::string("/dev/zero"), std::string()}) {
        expectRefused(path, "Row 1 Col 1 Error Failed to open file");
    }
    const std::string giant = dir.write("giant", "<a/>");
    std::filesystem::resize_file(giant, (std::uintmax_t{64} << 20U) + 1);
    expectRefused(giant, "Row 1 Col 1 Error File larger than 64 MiB.");
}

TEST(XmlDocument, DamageIsRefusedWithItsPlace) {
    using namespace std::string_literals;
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", "Row 1 Col 1 Error Error document empty."},
        {" \n", "Row 1 Col 1 Error Error document empty."},
        {"<a>\n <b>\n  </c>\n</a>\n", "Row 3 Col 3 Error Error reading end tag."},
        {"<a>\r\n\r\n<b c='1' c='2'/></a>", "Row 3 Col 10 Error Error parsing Element."},
        {"<a>\n<b", "Row 2 Col 2 Error Failed to read Element name"},
        {"<a><b></a>", "Row 1 Col 7 Error Error reading end tag."},
        {"<a>", "Row 1 Col 1 Error Error reading Element value."},
        {"<a b=\"1></a>\n", "Row 1 Col 4 Error Error parsing Element."},
        {"<?xml version=\"1.0\" enco", "Row 1 Col 1 Error Error parsing Declaration."},
        {"<a/>\n<!-- ", "Row 2 Col 5 Error Error parsing Comment."},
        {"<a/>\n</a>", "Row 2 Col 1 Error Error reading end tag."},
        {"<a/>\n rest", "Row 2 Col 2 Error Text outside of the root element."},
        {"<a>\n<1/></a>", "Row 2 Col 1 Error Failed to read Element name"},
        {"<a/>\n\0"s, "Row 2 Col 1 Error Error null (0) or unexpected EOF found in input stream."},
        // A character of four bytes is begun where the file ends.
        {"<?xml version='1.0'?><a>\xF0", "Row 1 Col 1 Error Error reading Element value."},
        // A character of three bytes takes the quote.
        {"<?xml version='1.0'?><a b='\xE0\xA0' c='1'/>",
         "Row 1 Col 33 Error Error reading Attributes."},
        // Entities that grow tenfold with each level are never expanded: TinyXML knows no such.
        {"<!DOCTYPE l [<!ENTITY a \"aaaaaaaaaa\">\n<!ENTITY b \"&a;&a;&a;\">]>\n<l>&b;</l>",
         "Row 2 Col 24 Error Text outside of the root element."},
        {nested(257), "Row 1 Col 769 Error Elements nested too deeply."},
        {repeated("<a>", 1'000'000), "Row 1 Col 769 Error Elements nested too deeply."},
        {withAttributes(257), "Row 2 Col 1 Error Too many attributes of one element."},
        // A number swallows markup, so that the parser sees one level where a reader sees two.
        {"<a>" + repeated("&#</a>#5;<a>", 300), "Row 1 Col 3073 Error Elements nested too deeply."},
    };
    const TempDir dir;
    for (const auto& [text, line] : rows) {
        SCOPED_TRACE(text.substr(0, 60));
        expectRefused(dir.write("damaged.xml", text), line);
    }
}

TEST(XmlDocument, BoundsAreReached) {
    const TempDir dir;
    XmlDocument document;
    for (const std::string& text : {nested(256), withAttributes(256)}) {
        EXPECT_TRUE(document.read(dir.write("bound.xml", text))) << text.substr(0, 60);
        EXPECT_TRUE(document.write(dir.path("back.xml")));
        EXPECT_TRUE(XmlDocument().read(dir.path("back.xml")));
    }
}

TEST(XmlDocument, AGoodFileDoesNotGiveWayToOneThatCannotBeRead) {
    const TempDir dir;
    const std::string path = dir.write("good.xml", "<good />");
    const auto written = [&](auto build) {
        XmlDocument document;
        XmlElement root("root");
        document.appendElement(root);
        build(root);
        return document.write(path);
    };
    EXPECT_FALSE(written([](XmlElement& root) {
        for (int i = 0; i < 257; ++i) {
            root.setAttributeInt("a" + std::to_string(i), i);
        }
    }));
    EXPECT_FALSE(written([](XmlElement root) {
        for (int i = 0; i < 256; ++i) {
            XmlElement child("child");
            root.appendElement(child);
            root = child;
        }
    }));
    const long before = mostResidentKib();
    EXPECT_FALSE(written([](XmlElement& root) {  // printed whole it would take 4 GB
        XmlElement tree("inner");
        for (int i = 0; i < 30000; ++i) {
            XmlElement outer("outer");
            outer.appendElement(tree);
            tree = outer;
        }
        root.appendElement(tree);
    }));
    EXPECT_LT(mostResidentKib() - before, 512 * 1024);
    EXPECT_FALSE(written([](XmlElement& root) { root.setAttributeString("a", "caf\xE9"); }));
    EXPECT_FALSE(written([](XmlElement& root) { root.setAttributeString("1 =", ""); }));
    EXPECT_EQ(wholeText(path), "<good />");
    EXPECT_TRUE(written([](XmlElement& root) { root.setAttributeString("a", "caf\xC3\xA9"); }));
    EXPECT_TRUE(XmlDocument().read(path));
}

TEST(XmlDocument, ReadsAndWritesWhatTinyXmlDoes) {
    const std::vector<std::string> rows = {
        "<a/>",
        "<?xml version=\"1.0\"?>\r\n<a b='\"' c=\"&#x41;&#xE4;\xC3\xA4'\">\r\n x &amp; y\r</a>\n",
        "\xEF\xBB\xBF<a b='\xC3\xA4'>\xE2\x82\xAC</a>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xE4'>\xE4&#228;</a>",
        "<?xml-stylesheet href='a'?><!DOCTYPE a><!-- \r <b> --><a><b/>text<b>one</b><![CDATA[<x>]]>"
        "<!-- c --><?php ?></a><b><![CDATA[]]></b>",
        "<a b=c d = 'e'  >&bogus; &lt;&#60;<b></b ></a >\n\n",
    };
    const TempDir dir;
    for (const std::string& text : rows) {
        SCOPED_TRACE(text);
        const std::string path = dir.write("in.xml", text);
        XmlDocument document;
        ASSERT_TRUE(document.read(path));
        const XmlDocument copy = document;
        ASSERT_TRUE(document.write(dir.path("ours.xml")));
        TiXmlDocument judge;
        ASSERT_TRUE(judge.LoadFile(path) && judge.SaveFile(dir.path("judge.xml")));
        EXPECT_EQ(wholeText(dir.path("ours.xml")), wholeText(dir.path("judge.xml")));
        document = copy;
        ASSERT_TRUE(document.write(dir.path("copy.xml")));
        EXPECT_EQ(wholeText(dir.path("copy.xml")), wholeText(dir.path("judge.xml")));
    }
}

TEST(XmlDocument, StartsWithTheDeclarationAndCopiesDeeply) {
    const TempDir dir;
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n";
    XmlDocument document;
    ASSERT_TRUE(document.write(dir.path("new.xml")));
    EXPECT_EQ(wholeText(dir.path("new.xml")), declaration);
    EXPECT_TRUE(document.read(dir.path("new.xml")));
    EXPECT_FALSE(document.root().valid());

    XmlElement root("root");
    document.appendElement(root);
    XmlDocument copy = document;
    root.setAttributeInt("later", 1);
    EXPECT_EQ(copy.root().getAttributeInt("later", 0), 0);
    const XmlDocument& same = document;
    document = same;
    EXPECT_EQ(root.getAttributeInt("later", 0), 1) << "its elements are the same still";
    ASSERT_TRUE(copy.write(dir.path("new.xml")));
    EXPECT_EQ(wholeText(dir.path("new.xml")), declaration + "<root />\n");
}

TEST(XmlElement, AttributesHaveTypesAndDefaults) {
    const TempDir dir;
    XmlDocument document;
    ASSERT_TRUE(document.read(
        dir.write("in.xml",
                  "<a octal='010' hex='0x1F' text='12abc' minus='0xffffffff' empty='' TRUE='TRUE' "
                  "true='true' pi=' 3.25e1x' long='" +
                      std::string(300, 'x') + "'/>")));
    const XmlElement a = document.root();
    const std::vector<std::pair<std::string, int>> numbers = {
        {"octal", 8}, {"hex", 31}, {"text", 12}, {"minus", -1}, {"empty", 0}, {"missing", 77}};
    for (const auto& [name, value] : numbers) {
        EXPECT_EQ(a.getAttributeInt(name, 77), value) << name;
    }
    EXPECT_EQ(a.getAttributeDouble("pi", 1.5), 32.5);
    EXPECT_EQ(a.getAttributeDouble("missing", 1.5), 1.5);
    EXPECT_FALSE(a.getAttributeBool("TRUE", true));
    EXPECT_TRUE(a.getAttributeBool("true", false));
    EXPECT_TRUE(a.getAttributeBool("missing", true));
    for (const unsigned int maxLength : {0U, 256U}) {
        EXPECT_EQ(a.getAttributeString("long", maxLength), std::string(300, 'x'));
        EXPECT_EQ(a.getAttributeString("missing", maxLength), "");
    }
}

TEST(XmlElement, IsBuiltNavigatedAndPrinted) {
    XmlDocument document;
    XmlElement root("root");
    XmlElement first("first");
    XmlElement second("second");
    document.appendElement(root);
    root.appendElement(first);
    root.appendElement(second);
    first.setAttributeHex("hex", 255);
    first.setAttributeHex("minus", -1);
    first.setAttributeDouble("tenth", 0.1);
    first.setAttributeDouble("large", 123456789.0);
    first.setAttributeDouble("small", 1e-7);
    second.setAttributeInt("n", -5);
    second.setAttributeBool("on", true);
    second.setAttributeBool("off", false);
    second.setAttributeString("s", "a<b");
    second.setAttributeString("s", "a<\"c'\n");
    std::string text;
    document.print(root, text);
    const std::string expected =
        "<root>\n"
        "    <first hex=\"0xff\" minus=\"0xffffffff\" tenth=\"0.1\" large=\"1.23457e+08\" "
        "small=\"1e-07\" />\n"
        "    <second n=\"-5\" on=\"true\" off=\"false\" s='a&lt;&quot;c&apos;&#x0A;' />\n"
        "</root>\n";
    EXPECT_EQ(text, expected);

    // What has a place keeps it, and nothing can hold itself.
    second.appendElement(first);
    root.appendElement(root);
    first.appendElement(root);
    document.appendElement(second);
    XmlElement loose("loose");
    XmlElement below("below");
    loose.appendElement(below);
    below.appendElement(loose);
    document.print(root, text);
    EXPECT_EQ(text, expected);
    second.appendElement(loose);
    EXPECT_EQ(root.firstElement().nextElement().firstElement().data(), loose.data());
}

TEST(XmlElement, PassesOverWhatIsNoElementAndBearsInvalidHandles) {
    const TempDir dir;
    XmlDocument document;
    ASSERT_TRUE(document.read(
        dir.write("in.xml", "<r>t<!-- c --><a> one\n two </a>x<b/><![CDATA[y]]><c><d/>z</c></r>")));
    std::string seen;
    XmlElement e = document.root().firstElement();
    for (; e.valid(); e = e.nextElement()) {
        seen += e.name() + "=" + e.value() + ";";
    }
    EXPECT_EQ(seen, "a=one two;b=;c=;");

    e.setAttributeInt("n", 1);
    e.appendElement(e);
    document.appendElement(e);
    std::string text = "old";
    document.print(e, text);
    EXPECT_EQ(text + e.name() + e.value() + e.getAttributeString("n", 0), "");
    EXPECT_EQ(e.getAttributeInt("n", 5), 5);
    EXPECT_FALSE(e.firstElement().valid() || e.nextElement().valid() || e.data() != nullptr);
}

}  // namespace
