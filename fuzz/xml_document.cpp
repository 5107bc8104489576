// Any bytes as an XML file. The scan must keep in step with the parser: of what it lets pass, the
// parser must never nest deeper or read more attributes of an element than the scan has counted,
// and where it reads all, exactly as much. What a document can read it must be able to print and
// write without a change for the parser.
#include <Orlek/XML/XmlDocument.h>
#include <tinyxml.h>

#include <algorithm>
#include <string>

#include "FuzzTarget.h"
#include "MemoryFile.h"
#include "config/xml/XmlScan.h"
#include "config/xml/XmlText.h"

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

void checkScan(const std::string& text, XmlLimits limits) {
    const std::string padded = text + std::string(XmlScan::padding, '\0');
    XmlScan scan({padded.data(), text.size()}, limits);
    if (!scan.run()) {
        require(scan.fault() != nullptr && scan.faultOffset() <= text.size());
        return;
    }
    TiXmlDocument document;
    document.Parse(padded.c_str());
    const XmlLimits parsed = extentOf(document);
    require(parsed.depth <= scan.extent().depth && scan.extent().depth <= limits.depth);
    require(parsed.attributes <= scan.extent().attributes);
    require(scan.extent().attributes <= limits.attributes);
    if (!document.Error()) {
        require(parsed.depth == scan.extent().depth);
        require(parsed.attributes == scan.extent().attributes);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    Orlek::XML::XmlDocument document;
    const bool read = document.read(file.path());
    Orlek::XML::XmlElement root = document.root();
    std::string printed;
    document.print(root, printed);
    require(read || printed.empty());

    const std::string text(reinterpret_cast<const char*>(data), size);
    if (text.find('\0') == std::string::npos) {
        checkScan(text, {});
        checkScan(text, {4, 2});
    }
    return 0;
}
