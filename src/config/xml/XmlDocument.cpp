// Documents over TinyXML's: files are looked at before they are parsed, and written whole or not at
// all.
#include <Orlek/XML/XmlDocument.h>
#include <tinyxml.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include "config/xml/XmlScan.h"
#include "config/xml/XmlText.h"
#include "platform/Report.h"
#include "platform/WholeFile.h"

namespace Orlek::XML {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

// Why a file cannot be read, and where: from 1, as the parser counts for people.
struct Fault {
    const char* what;
    int row = 1;
    int column = 1;
};

Fault faultAt(const char* what, std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const auto row = std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
    return {what, static_cast<int>(row) + 1, static_cast<int>(offset - lineStart) + 1};
}

Fault openingFault() {
    return {errno == EFBIG ? "File larger than 64 MiB." : "Failed to open file"};
}

// Section 2.11 of XML 1.0, as the parser does it for a file that it opens itself.
void useLineFeeds(std::vector<char>& text) {
    auto out = std::find(text.begin(), text.end(), '\r');
    for (auto in = out; in != text.end(); ++in) {
        if (*in != '\r') {
            *out++ = *in;
        } else if (in + 1 == text.end() || in[1] != '\n') {
            *out++ = '\n';
        }
    }
    text.erase(out, text.end());
}

// Whatever keeps the text from being parsed; nothing when it may be.
std::optional<Fault> findFault(std::string_view text) {
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos) {
        return faultAt("Error null (0) or unexpected EOF found in input stream.", text, zero);
    }
    Detail::XmlScan scan(text);
    if (scan.run()) {
        return std::nullopt;
    }
    return faultAt(scan.fault(), text, scan.faultOffset());
}

// The words of a fault belong to the document.
std::optional<Fault> parse(const char* text, TiXmlDocument& document) {
    document.SetTabSize(0);  // keeps the parser from counting rows and columns of all it reads
    document.Parse(text);
    if (!document.Error()) {
        return std::nullopt;
    }
    TiXmlDocument counting;
    counting.Parse(text);
    return Fault{document.ErrorDesc(), std::max(counting.ErrorRow(), 1),
                 std::max(counting.ErrorCol(), 1)};
}

std::optional<Fault> readFile(const std::string& path, TiXmlDocument& document, bool& hasMark) try {
    std::vector<char> text;
    constexpr std::size_t padding = Detail::XmlScan::padding;
    if (!Detail::readWholeFile(path, text, Detail::xmlFileLimit, padding)) {
        return openingFault();
    }
    text.resize(text.size() - padding);
    useLineFeeds(text);
    const std::size_t size = text.size();
    text.resize(size + padding);
    hasMark = std::string_view(text.data(), size).starts_with(byteOrderMark);
    const std::optional<Fault> fault = findFault({text.data(), size});
    return fault ? fault : parse(text.data(), document);
} catch (const std::bad_alloc&) {
    return Fault{"Out of memory."};
}

}  // namespace

struct XmlDocument::Tree {
    TiXmlDocument document;
    bool hasMark = false;  // TinyXML's own note of it cannot be asked
};

XmlDocument::XmlDocument() : mTree(std::make_unique<Tree>()) {
    mTree->document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
}

XmlDocument::~XmlDocument() = default;

XmlDocument::XmlDocument(const XmlDocument& other) : mTree(std::make_unique<Tree>(*other.mTree)) {}

XmlDocument& XmlDocument::operator=(const XmlDocument& other) {
    mTree = std::make_unique<Tree>(*other.mTree);
    return *this;
}

bool XmlDocument::read(const std::string& path) {
    auto tree = std::make_unique<Tree>();
    if (const std::optional<Fault> fault = readFile(path, tree->document, tree->hasMark)) {
        Detail::report("Error reading <%s> :\n", path.c_str());
        Detail::report("Row %d Col %d Error %s\n", fault->row, fault->column, fault->what);
        return false;
    }
    mTree = std::move(tree);
    return true;
}

bool XmlDocument::write(const std::string& path) {
    std::string text(mTree->hasMark ? byteOrderMark : "");
    Detail::appendXmlText(mTree->document, text);
    return Detail::XmlOutput(path).finish(text);
}

XmlElement XmlDocument::root() const {
    return XmlElement(mTree->document.FirstChildElement());
}

void XmlDocument::appendElement(XmlElement& element) {
    if (element.valid() && element.data()->Parent() == nullptr) {
        mTree->document.LinkEndChild(element.data());
    }
}

void XmlDocument::print(XmlElement& element, std::string& out) const {
    TiXmlPrinter printer;
    printer.SetIndent("    ");
    printer.SetLineBreak("\n");
    if (element.valid()) {
        element.data()->Accept(&printer);
    }
    out = printer.Str();
}

}  // namespace Orlek::XML
