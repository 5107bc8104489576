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

// Why a file cannot be read, and where.
struct Fault {
    const char* what;
    Detail::XmlPlace place{};
};

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

// The scan has found all that is broken; of an empty text it has not. The words belong to the
// document.
std::optional<Fault> parse(const char* text, TiXmlDocument& document) {
    document.SetTabSize(0);  // keeps the parser from counting rows and columns of all it reads
    document.Parse(text);
    return document.Error() ? std::optional(Fault{document.ErrorDesc()}) : std::nullopt;
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
    Detail::XmlScan scan({text.data(), size});
    return scan.run() ? parse(text.data(), document) : Fault{scan.fault(), scan.faultPlace()};
} catch (const std::bad_alloc&) {
    return Fault{"Out of memory."};
}

// What an application has built may go beyond the limits, or have bytes that swallow a quote. A
// good file must not give way to one that cannot be read.
bool isReadable(std::string& text) {
    const std::size_t size = text.size();
    text.append(Detail::XmlScan::padding, '\0');
    const bool readable = Detail::XmlScan({text.data(), size}).run();
    text.resize(size);
    return readable;
}

// TinyXML copies texts and attributes up to their first zero byte, which a reference can give them.
void copyZeroBytes(const TiXmlNode& from, TiXmlNode& to) {
    to.SetValue(from.ValueStr());
    const TiXmlElement* element = from.ToElement();
    if (TiXmlElement* copied = to.ToElement(); element != nullptr && copied != nullptr) {
        for (auto* at = element->FirstAttribute(); at != nullptr; at = at->Next()) {
            if (at->ValueStr().find('\0') != std::string::npos) {
                copied->SetAttribute(at->NameTStr(), at->ValueStr());
            }
        }
    }
    TiXmlNode* copy = to.FirstChild();
    for (auto* child = from.FirstChild(); child != nullptr; child = child->NextSibling()) {
        copyZeroBytes(*child, *copy);
        copy = copy->NextSibling();
    }
}

}  // namespace

struct XmlDocument::Tree {
    Tree() = default;
    Tree(const Tree& other) : document(other.document), hasMark(other.hasMark) {
        copyZeroBytes(other.document, document);
    }
    Tree& operator=(const Tree&) = delete;

    TiXmlDocument document;
    bool hasMark = false;  // TinyXML's own note of it cannot be asked
};

XmlDocument::XmlDocument() : mTree(std::make_unique<Tree>()) {
    mTree->document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
}

XmlDocument::~XmlDocument() = default;

XmlDocument::XmlDocument(const XmlDocument& other) : mTree(std::make_unique<Tree>(*other.mTree)) {}

XmlDocument& XmlDocument::operator=(const XmlDocument& other) {
    if (this != &other) {  // elements stay what they are
        mTree = std::make_unique<Tree>(*other.mTree);
    }
    return *this;
}

bool XmlDocument::read(const std::string& path) {
    auto tree = std::make_unique<Tree>();
    if (const std::optional<Fault> fault = readFile(path, tree->document, tree->hasMark)) {
        Detail::report("Error reading <%s> :\n", path.c_str());
        Detail::report("Row %d Col %d Error %s\n", fault->place.row, fault->place.column,
                       fault->what);
        return false;
    }
    mTree = std::move(tree);
    return true;
}

bool XmlDocument::write(const std::string& path) {
    std::string text(mTree->hasMark ? byteOrderMark : "");
    Detail::appendXmlText(mTree->document, text);
    return isReadable(text) && Detail::XmlOutput(path).finish(text);
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
