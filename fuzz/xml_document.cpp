// Any bytes as an XML file. The scan must keep in step with the parser: what it lets pass, the
// parser must take, to the same depth and with as many attributes of an element as the scan has
// counted; what it refuses for being broken within an element, the parser must refuse in the same
// words. What a document can read it must be able to print, copy and write, byte for byte as the
// parser itself does. Without any input the file is missing.
#include <Orlek/XML/XmlDocument.h>
#include <tinyxml.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzTarget.h"
#include "MemoryFile.h"
#include "Quiet.h"
#include "config/xml/XmlScan.h"
#include "config/xml/XmlText.h"
#include "platform/WholeFile.h"
#include "support/TempDir.h"

namespace {

using Orlek::Detail::XmlLimits;
using Orlek::Detail::XmlScan;

XmlLimits extentOf(const TiXmlNode& node) {
    XmlLimits extent{0, 0};
    for (const TiXmlNode* child = node.FirstChild(); child != nullptr;
         child = child->NextSibling()) {
        const XmlLimits inner = extentOf(*child);
        extent.depth = std::max(extent.depth, inner.depth);
        extent.attributes = std::max(extent.attributes, inner.attributes);
    }
    if (const TiXmlElement* element = node.ToElement()) {
        int attributes = 0;
        for (auto* at = element->FirstAttribute(); at != nullptr; at = at->Next()) {
            ++attributes;
        }
        extent = {extent.depth + 1, std::max(extent.attributes, attributes)};
    }
    return extent;
}

bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// As the parser saves it.
std::string saved(const TiXmlDocument& document) {
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const memory = open_memstream(&text, &size);
    require(memory != nullptr && document.SaveFile(memory));
    std::fclose(memory);
    const std::string copy(text, size);
    std::free(text);
    return copy;
}

void checkText(const TiXmlDocument& document) {
    std::string text;
    Orlek::Detail::appendXmlText(document, text);
    const std::string expected = saved(document);
    const bool marked = expected.starts_with("\xEF\xBB\xBF");
    require(text == expected.substr(marked ? 3 : 0));
}

void checkScan(const std::string& text, XmlLimits limits) {
    const std::string padded = text + std::string(XmlScan::padding, '\0');
    XmlScan scan({padded.data(), text.size()}, limits);
    const bool taken = scan.run();
    const std::string_view fault = taken ? "" : scan.fault();
    TiXmlDocument document;
    // Otherwise the parser may nest without end.
    if (!isOneOf(fault, {"Elements nested too deeply.", "Too many attributes of one element."})) {
        document.Parse(padded.c_str());
    }
    if (!taken) {
        require(fault != "" && scan.faultPlace().row >= 1 && scan.faultPlace().column >= 1);
        require(!isOneOf(fault, {"Error reading Element value.", "Error reading Attributes.",
                                 "Error parsing Element.", "Error: empty tag."}) ||
                fault == document.ErrorDesc());
        return;
    }
    const XmlLimits parsed = extentOf(document);
    require(!document.Error() || document.ErrorId() == TiXmlBase::TIXML_ERROR_DOCUMENT_EMPTY);
    require(parsed.depth == scan.extent().depth && parsed.depth <= limits.depth);
    require(parsed.attributes == scan.extent().attributes);
    require(parsed.attributes <= limits.attributes);
    checkText(document);
}

std::string printedText(const Orlek::XML::XmlDocument& document) {
    Orlek::XML::XmlElement root = document.root();
    std::string text;
    document.print(root, text);
    return text;
}

/// Whether a value of a declaration has a quote, which the parser prints as it is.
bool quotesADeclaration(const TiXmlNode& node) {
    if (const TiXmlDeclaration* declaration = node.ToDeclaration()) {
        const std::string values = std::string(declaration->Version()) + declaration->Encoding() +
                                   declaration->Standalone();
        return values.find('"') != std::string::npos;
    }
    bool found = false;
    for (auto* child = node.FirstChild(); child != nullptr; child = child->NextSibling()) {
        found = found || quotesADeclaration(*child);
    }
    return found;
}

/// A copy prints the same, and is written so that it can be read; or not at all, which takes a
/// quote in a declaration, or bytes that are no characters and swallow the quote behind them.
void checkWritten(const Orlek::XML::XmlDocument& document, const std::string& printed,
                  std::string_view input) {
    static const OrlekTest::TempDir dir;
    static const std::string path = dir.path("document.xml");
    std::vector<char> written;
    Orlek::XML::XmlDocument copy(document);
    require(printedText(copy) == printed);
    if (copy.write(path)) {
        require(Orlek::Detail::readWholeFile(path, written) && !written.empty());
        require(Orlek::XML::XmlDocument().read(path));
    } else {
        const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
        TiXmlDocument parsed;
        parsed.Parse(std::string(input).c_str());
        require(!std::all_of(input.begin(), input.end(), isAscii) || quotesADeclaration(parsed));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    const std::string text(reinterpret_cast<const char*>(data), size);
    Orlek::XML::XmlDocument document;
    const bool read = document.read(size > 0 ? file.path() : missingPath);
    const std::string printed = printedText(document);
    require(read || printed.empty());
    if (read) {
        checkWritten(document, printed, text);
    }
    if (text.find('\0') == std::string::npos) {
        checkScan(text, {});
        checkScan(text, {4, 2});
    }
    return 0;
}
