// The scan. Where a rule looks odd, it is the parser's: every function names what it follows there.
// The functions of <cctype> follow the locale of the process as those of the parser do.
#include "config/xml/XmlScan.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace Orlek::Detail {

namespace {

constexpr int tabWidth = 4;

// Kinds of bytes, to be added up.
enum : unsigned char { space = 1, nameStart = 2, nameOther = 4, plain = 8 };

// TiXmlBase::IsWhiteSpace, IsAlpha and IsAlphaNum: all that is not ASCII is a letter. Plain is what
// is a character by itself in any encoding and ends nothing.
unsigned char kindOf(unsigned char byte) {
    const bool letter = byte == '_' || byte >= 127 || std::isalpha(byte) != 0;
    const bool other = byte == '-' || byte == '.' || byte == ':' || std::isalnum(byte) != 0;
    const bool special =
        byte == 0 || byte >= 0x80 || byte == '&' || byte == '<' || byte == '"' || byte == '\'';
    return static_cast<unsigned char>((std::isspace(byte) != 0 ? space : 0) |
                                      (letter ? nameStart : 0) | (other ? nameOther : 0) |
                                      (special ? 0 : plain));
}

bool startsWith(const char* p, std::string_view word) {
    return std::strncmp(p, word.data(), word.size()) == 0;
}

// The signed char is handed on as it is, as TiXmlBase::ToLower does.
bool startsWithAnyCase(const char* p, std::string_view word) {
    return std::equal(word.begin(), word.end(), p, [](char expected, char c) {
        return std::tolower(c) == std::tolower(expected);
    });
}

// TiXmlBase::utf8ByteTable: by the first byte alone, whatever follows.
std::ptrdiff_t utf8Length(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0xC2 || byte > 0xF4) {
        return 1;
    }
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Byte order marks and the two that are no characters, which count as space in UTF-8.
bool isMark(const char* p) {
    return startsWith(p, "\xEF\xBB\xBF") || startsWith(p, "\xEF\xBF\xBE") ||
           startsWith(p, "\xEF\xBF\xBF");
}

bool isDigitOf(char c, bool hexadecimal) {
    return (c >= '0' && c <= '9') ||
           (hexadecimal && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F')));
}

}  // namespace

XmlScan::XmlScan(std::string_view text, XmlLimits limits)
    : mBegin(text.data()), mEnd(text.data() + text.size()), mLimits(limits) {
    for (std::size_t byte = 0; byte < mKinds.size(); ++byte) {
        mKinds[byte] = kindOf(static_cast<unsigned char>(byte));
    }
}

const char* XmlScan::refuse(const char* where, const char* fault) {
    if (mFault == nullptr) {
        mFault = fault;
        mFaultAt = where;
    }
    return mEnd;
}

// TiXmlParsingData::Stamp.
XmlPlace XmlScan::faultPlace() const {
    XmlPlace place;
    int column = 0;
    for (const char* p = mBegin; mFaultAt != nullptr && p < mFaultAt;) {
        if (*p == '\n') {
            ++place.row;
            column = 0;
            ++p;
        } else if (*p == '\t') {
            column = (column / tabWidth + 1) * tabWidth;
            ++p;
        } else if (mEncoding == Encoding::utf8) {
            column += isMark(p) ? 0 : 1;
            p += utf8Length(*p);
        } else {
            ++column;
            ++p;
        }
    }
    place.column = column + 1;
    return place;
}

bool XmlScan::run() {
    if (const void* zero = std::memchr(mBegin, 0, static_cast<std::size_t>(mEnd - mBegin))) {
        refuse(static_cast<const char*>(zero),
               "Error null (0) or unexpected EOF found in input stream.");
        return false;
    }
    return walk();
}

// TiXmlDocument::Parse and, without its recursion, TiXmlElement::ReadValue.
bool XmlScan::walk() {
    if (startsWith(mBegin, "\xEF\xBB\xBF")) {
        mEncoding = Encoding::utf8;
    }
    const char* end = mBegin;
    for (const char* p = skipSpace(mBegin); *p != '\0'; p = skipSpace(end)) {
        end = skipItem(p);
    }
    if (!mOpen.empty() && end == mEnd) {
        refuse(nullptr, "Error reading Element value.");
    } else if (!mOpen.empty()) {
        refuse(mEnd, "Error reading end tag.");
    }
    return mFault == nullptr;
}

const char* XmlScan::skipItem(const char* p) {
    if (*p == '<') {
        return p[1] == '/' ? skipEndTag(p) : skipMarkup(p);
    }
    return !mOpen.empty() ? skipText(p) : refuse(p, "Text outside of the root element.");
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
    return is(p[1], nameStart) ? skipStartTag(p) : refuse(p, "Failed to read Element name");
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
    const char* const name = skipSpace(tag + 1);  // a byte order mark may stand there
    const char* const nameEnd = skipName(name);
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
        const char* const start = skipSpace(p);
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
    const char* const p = skipSpace(nameEnd);
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
        p = skipSpace(p);
        if (startsWithAnyCase(p, "encoding")) {
            const Attribute attribute = skipAttribute(p);
            encoding = attribute.value;
            p = attribute.end;
        } else if (startsWithAnyCase(p, "version") || startsWithAnyCase(p, "standalone")) {
            p = skipAttribute(p).end;
        } else {
            while (*p != '\0' && *p != '>' && !is(*p, space)) {
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
    if (name.find('&') != std::string_view::npos) {
        refuse(where, "Error parsing Declaration.");
    } else if (mEncoding == Encoding::unknown) {
        const bool utf8 = name.empty() || startsWithAnyCase(name.data(), "UTF-8") ||
                          startsWithAnyCase(name.data(), "UTF8");
        mEncoding = utf8 ? Encoding::utf8 : Encoding::other;
    }
}

// TiXmlAttribute::Parse.
XmlScan::Attribute XmlScan::skipAttribute(const char* p) const {
    const char* const nameEnd = skipName(p);
    if (*nameEnd == '\0') {
        return {.end = mEnd, .broken = true, .where = p};
    }
    const char* const sign = skipSpace(nameEnd);
    if (*sign != '=') {
        return {.end = mEnd, .broken = true, .where = sign};
    }
    const char* const value = skipSpace(sign + 1);
    if (*value == '\0') {
        return {.end = mEnd, .broken = true, .where = sign[1] == '\0' ? nullptr : value};
    }
    Attribute attribute{.end = value, .name = {p, nameEnd}};
    if (*value == '"' || *value == '\'') {
        attribute.end = skipQuoted(value);
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
    while (*p != '\0' && *p != '/' && *p != '>' && !is(*p, space)) {
        if (*p == '"' || *p == '\'') {
            attribute.broken = true;
            attribute.where = p;
            p = mEnd;
            return;
        }
        ++p;
    }
}

// TiXmlBase::ReadText up to the quote that stands at p.
const char* XmlScan::skipQuoted(const char* p) const {
    const char quote = *p++;
    while (*p != '\0' && *p != quote) {
        p = skipCharacter(p);
    }
    return p < mEnd ? p + 1 : mEnd;
}

// TiXmlBase::ReadText up to the next tag.
const char* XmlScan::skipText(const char* p) const {
    while (*p != '\0' && *p != '<') {
        p = is(*p, space | plain) ? p + 1 : skipCharacter(p);
    }
    return p;
}

// TiXmlBase::GetChar: in UTF-8 the first byte of a character takes the next ones with it, be they
// quotes or angle brackets.
const char* XmlScan::skipCharacter(const char* p) const {
    if (is(*p, plain)) {
        return p + 1;
    }
    if (*p == '&') {
        return skipReference(p);
    }
    const std::ptrdiff_t length = mEncoding == Encoding::utf8 ? utf8Length(*p) : 1;
    return p + std::min(length, mEnd - p);
}

// TiXmlBase::GetEntity. A number is read from its semicolon backwards, so it may hide anything: in
// "&#<a>#5;" there is no tag. Of what it does not know, the parser drops the ampersand.
const char* XmlScan::skipReference(const char* p) const {
    if (p[1] == '#' && p[2] != '\0') {
        const bool hexadecimal = p[2] == 'x';
        const char* semicolon = std::strchr(p + (hexadecimal ? 3 : 2), ';');
        if (semicolon == nullptr) {
            return mEnd;
        }
        const char* digit = semicolon - 1;
        while (isDigitOf(*digit, hexadecimal)) {
            --digit;
        }
        return *digit == (hexadecimal ? 'x' : '#') ? semicolon + 1 : mEnd;
    }
    for (const std::string_view known : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"}) {
        if (startsWith(p, known)) {
            return p + known.size();
        }
    }
    return p + 1;
}

// TiXmlBase::ReadName.
const char* XmlScan::skipName(const char* p) const {
    if (!is(*p, nameStart)) {
        return mEnd;
    }
    while (is(*p, nameStart | nameOther)) {
        ++p;
    }
    return p;
}

// TiXmlBase::SkipWhiteSpace.
const char* XmlScan::skipSpace(const char* p) const {
    for (;;) {
        if (is(*p, space)) {
            ++p;
        } else if (*p == '\xEF' && mEncoding == Encoding::utf8 && isMark(p)) {
            p += 3;
        } else {
            return p;
        }
    }
}

}  // namespace Orlek::Detail
