#include "config/xml/XmlText.h"

#include <tinyxml.h>

#include <cstddef>

#include "config/xml/XmlScan.h"

namespace Orlek::Detail {

namespace {

void appendNode(const TiXmlNode& node, int depth, std::string& out);

// A single text stands between the tags, anything else on lines of its own.
void appendChildren(const TiXmlElement& element, int depth, std::string& out) {
    const TiXmlNode* first = element.FirstChild();
    if (first == element.LastChild() && first->ToText() != nullptr) {
        appendNode(*first, depth + 1, out);
        return;
    }
    for (const TiXmlNode* child = first; child != nullptr; child = child->NextSibling()) {
        if (child->ToText() == nullptr) {
            out += '\n';
        }
        appendNode(*child, depth + 1, out);
    }
    out += '\n';
    appendIndent(depth, out);
}

void appendElement(const TiXmlElement& element, int depth, std::string& out) {
    appendIndent(depth, out);
    out.append("<").append(element.Value());
    const TiXmlAttribute* attribute = element.FirstAttribute();
    for (; attribute != nullptr; attribute = attribute->Next()) {
        out += ' ';
        attribute->Print(nullptr, depth, &out);
    }
    // What is deeper makes the text one that cannot be read anyway, and as long as depth squared.
    if (element.FirstChild() == nullptr || depth >= XmlLimits().depth) {
        out += " />";
        return;
    }
    out += '>';
    appendChildren(element, depth, out);
    out.append("</").append(element.Value()).append(">");
}

void appendText(const TiXmlText& text, int depth, std::string& out) {
    if (text.CDATA()) {
        out += '\n';
        appendIndent(depth, out);
        out.append("<![CDATA[").append(text.Value()).append("]]>\n");
    } else {
        TiXmlBase::EncodeString(text.ValueTStr(), &out);
    }
}

void appendNode(const TiXmlNode& node, int depth, std::string& out) {
    if (const TiXmlElement* element = node.ToElement()) {
        appendElement(*element, depth, out);
    } else if (const TiXmlText* text = node.ToText()) {
        appendText(*text, depth, out);
    } else if (const TiXmlDeclaration* declaration = node.ToDeclaration()) {
        declaration->Print(nullptr, depth, &out);
    } else {
        const bool comment = node.ToComment() != nullptr;
        appendIndent(depth, out);
        out.append(comment ? "<!--" : "<").append(node.Value()).append(comment ? "-->" : ">");
    }
}

}  // namespace

void XmlOutput::write(std::string_view text) {
    mSize += text.size();
    mGood = mGood && mSize <= xmlFileLimit && mFile.write(text);
}

void XmlOutput::pass(std::string& text) {
    constexpr std::size_t block = std::size_t{64} << 10U;
    if (text.size() >= block) {
        write(text);
        text.clear();
    }
}

bool XmlOutput::finish(std::string_view rest) {
    write(rest);
    return mGood && mFile.commit();
}

void appendIndent(int depth, std::string& out) {
    constexpr std::size_t blanksOfLevel = 4;
    out.append(static_cast<std::size_t>(depth) * blanksOfLevel, ' ');
}

void appendXmlText(const TiXmlDocument& document, std::string& out) {
    for (const TiXmlNode* node = document.FirstChild(); node != nullptr;
         node = node->NextSibling()) {
        appendNode(*node, 0, out);
        out += '\n';
    }
}

}  // namespace Orlek::Detail
