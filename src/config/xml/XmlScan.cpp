// The scan. Where a rule looks odd, it is the parser's: every function names what it follows there.
#include "config/xml/XmlScan.h"

#include <algorithm>
#include <cstring>

namespace Orlek::Detail {

XmlScan::XmlScan(std::string_view text, XmlLimits limits) : mText(text), mLimits(limits) {}

const char* XmlScan::refuse(const char* where, const char* fault) {
    if (mFault == nullptr) {
        mFault = fault;
        mFaultAt = where;
    }
    return mText.end();
}

bool XmlScan::run() {
    if (const void* zero =
            std::memchr(mText.begin(), 0, static_cast<std::size_t>(mText.end() - mText.begin()))) {
        refuse(static_cast<const char*>(zero),
               "Error null (0) or unexpected EOF found in input stream.");
        return false;
    }
    return walk();
}

// TiXmlDocument::Parse and, without its recursion, TiXmlElement::ReadValue.
bool XmlScan::walk() {
    if (startsWith(mText.begin(), "\xEF\xBB\xBF")) {
        mText.setEncoding(XmlCharacters::Encoding::utf8);
    }
    const char* end = mText.begin();
    for (const char* p = mText.skipSpace(mText.begin()); *p != '\0'; p = mText.skipSpace(end)) {
        end = skipItem(p);
    }
    if (!mOpen.empty() && end == mText.end()) {
        refuse(nullptr, "Error reading Element value.");
    } else if (!mOpen.empty()) {
        refuse(mText.end(), "Error reading end tag.");
    }
    return mFault == nullptr;
}

const char* XmlScan::skipItem(const char* p) {
    if (*p == '<') {
        return p[1] == '/' ? skipEndTag(p) : skipMarkup(p);
    }
    return !mOpen.empty() ? mText.skipText(p) : refuse(p, "Text outside of the root element.");
}

// TiXmlNode::Identify. What it calls unknown is a document type, an instruction or a damaged tag.
const char* XmlScan::skipMarkup(const char* p) {
    if (startsWithAnyCase(p, "<?xml")) {
        return skipDeclaration(p);
    }
    if (startsWith(p, "<!--")) {
        return skipTo(p + 4, "-->", "Error parsing Comment.");
    }
    if (startsWith(p, "<![CDATA[")) {
        return !mOpen.empty() ? skipTo(p + 9, "]]>", "Error parsing CDATA.")
                              : refuse(p, "Text outside of the root element.");
    }
    if (p[1] == '!' || p[1] == '?') {
        return skipTo(p + 1, ">", "Error parsing Unknown.");
    }
    return mText.is(p[1], XmlCharacters::nameStart) ? skipStartTag(p)
                                                    : refuse(p, "Failed to read Element name");
}

const char* XmlScan::skipTo(const char* p, const char* end, const char* faultWithout) {
    const char* found = std::strstr(p, end);
    return found != nullptr ? found + std::strlen(end) : refuse(p, faultWithout);
}

// The first half of TiXmlElement::Parse.
const char* XmlScan::skipStartTag(const char* tag) {
    const int depth = static_cast<int>(mOpen.size()) + 1;
    mExtent.depth = std::max(mExtent.depth, depth);
    if (depth > mLimits.depth) {
        return refuse(tag, "Elements nested too deeply.");
    }
    const char* const name = mText.skipSpace(tag + 1);  // a byte order mark may stand there
    const char* const nameEnd = mText.skipName(name);
    if (*nameEnd == '\0') {
        return refuse(name, "Failed to read Element name");
    }
    const char* const p = skipAttributes(nameEnd, tag);
    if (*p == '>') {
        mOpen.emplace_back(name, nameEnd);
        return p + 1;
    }
    if (*p == '/') {
        return p[1] == '>' ? p + 2 : refuse(p + 1, "Error: empty tag.");
    }
    return p;
}

// Up to the angle bracket or slash.
const char* XmlScan::skipAttributes(const char* p, const char* tag) {
    mNames.clear();
    for (;;) {
        const char* const start = mText.skipSpace(p);
        if (*start == '\0') {
            return refuseInTag(p, "Error reading Attributes.");
        }
        if (*start == '/' || *start == '>') {
            const char* const twin = firstTwin();
            return twin == nullptr ? start : refuse(twin, "Error parsing Element.");
        }
        const int count = static_cast<int>(mNames.size()) + 1;
        mExtent.attributes = std::max(mExtent.attributes, count);
        if (count > mLimits.attributes) {
            return refuse(tag, "Too many attributes of one element.");
        }
        const Attribute attribute = skipAttribute(start);
        if (attribute.broken) {
            return refuseInTag(attribute.where, "Error reading Attributes.");
        }
        if (*attribute.end == '\0') {
            return refuseInTag(start, "Error parsing Element.");
        }
        mNames.push_back(attribute.name);
        p = attribute.end;
    }
}

// The parser looks for a name twice at each attribute, this scan when it comes to an end.
const char* XmlScan::refuseInTag(const char* where, const char* fault) {
    const char* const twin = firstTwin();
    return twin == nullptr ? refuse(where, fault) : refuse(twin, "Error parsing Element.");
}

// The first attribute whose name an earlier one has; null when there is none.
const char* XmlScan::firstTwin() {
    std::sort(mNames.begin(), mNames.end(), [](std::string_view a, std::string_view b) {
        const int order = a.compare(b);
        return order != 0 ? order < 0 : a.data() < b.data();
    });
    const char* first = nullptr;
    for (std::size_t i = 1; i < mNames.size(); ++i) {
        if (mNames[i] == mNames[i - 1] && (first == nullptr || mNames[i].data() < first)) {
            first = mNames[i].data();
        }
    }
    return first;
}

// The second half.
const char* XmlScan::skipEndTag(const char* tag) {
    const char* const name = tag + 2;
    if (mOpen.empty() || !startsWith(name, mOpen.back())) {
        return refuse(tag, "Error reading end tag.");
    }
    const char* const nameEnd = name + mOpen.back().size();
    const char* const p = mText.skipSpace(nameEnd);
    if (*p != '>') {
        return refuse(*nameEnd == '\0' ? nullptr : p, "Error reading end tag.");
    }
    mOpen.pop_back();
    return p + 1;
}

// TiXmlDeclaration::Parse, which also takes instructions whose names begin with xml.
const char* XmlScan::skipDeclaration(const char* declaration) {
    std::string_view encoding;
    const char* p = declaration + 5;
    while (*p != '\0' && *p != '>') {
        p = mText.skipSpace(p);
        if (startsWithAnyCase(p, "encoding")) {
            const Attribute attribute = skipAttribute(p);
            encoding = attribute.value;
            p = attribute.end;
        } else if (startsWithAnyCase(p, "version") || startsWithAnyCase(p, "standalone")) {
            p = skipAttribute(p).end;
        } else {
            while (*p != '\0' && *p != '>' && !mText.is(*p, XmlCharacters::space)) {
                ++p;
            }
        }
    }
    if (*p == '\0') {
        return refuse(declaration, "Error parsing Declaration.");
    }
    if (mOpen.empty()) {
        takeEncoding(encoding, declaration);
    }
    return p + 1;
}

// The first declaration decides. A reference in the name is allowed nowhere, and is refused to
// spare this scan the expanding of references.
void XmlScan::takeEncoding(std::string_view name, const char* where) {
    using Encoding = XmlCharacters::Encoding;
    if (name.find('&') != std::string_view::npos) {
        refuse(where, "Error parsing Declaration.");
    } else if (mText.encoding() == Encoding::unknown) {
        const bool utf8 = name.empty() || startsWithAnyCase(name.data(), "UTF-8") ||
                          startsWithAnyCase(name.data(), "UTF8");
        mText.setEncoding(utf8 ? Encoding::utf8 : Encoding::other);
    }
}

// TiXmlAttribute::Parse.
XmlScan::Attribute XmlScan::skipAttribute(const char* p) const {
    const char* const nameEnd = mText.skipName(p);
    if (*nameEnd == '\0') {
        return {.end = mText.end(), .broken = true, .where = p};
    }
    const char* const sign = mText.skipSpace(nameEnd);
    if (*sign != '=') {
        return {.end = mText.end(), .broken = true, .where = sign};
    }
    const char* const value = mText.skipSpace(sign + 1);
    if (*value == '\0') {
        return {.end = mText.end(), .broken = true, .where = sign[1] == '\0' ? nullptr : value};
    }
    Attribute attribute{.end = value, .name = {p, nameEnd}};
    if (*value == '"' || *value == '\'') {
        attribute.end = mText.skipQuoted(value);
        attribute.value = attribute.end - value < 2
                              ? std::string_view(value, attribute.end)
                              : std::string_view(value + 1, attribute.end - 1);
    } else {
        skipUnquoted(attribute);
        attribute.value = {value, attribute.end};
    }
    return attribute;
}

void XmlScan::skipUnquoted(Attribute& attribute) const {
    const char*& p = attribute.end;
    while (*p != '\0' && *p != '/' && *p != '>' && !mText.is(*p, XmlCharacters::space)) {
        if (*p == '"' || *p == '\'') {
            attribute.broken = true;
            attribute.where = p;
            p = mText.end();
            return;
        }
        ++p;
    }
}

}  // namespace Orlek::Detail
