// The scan. Where a rule looks odd, it is the parser's: every function names what it follows there.
// The functions of <cctype> follow the locale of the process as those of the parser do.
#include "config/xml/XmlScan.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace Orlek::Detail {

namespace {

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
        mFaultOffset = static_cast<std::size_t>(where - mBegin);
    }
    return mEnd;
}

// TiXmlDocument::Parse and, without its recursion, TiXmlElement::ReadValue.
bool XmlScan::run() {
    if (startsWith(mBegin, "\xEF\xBB\xBF")) {
        mEncoding = Encoding::utf8;
    }
    const char* p = skipSpace(mBegin);
    while (*p != '\0') {
        p = skipSpace(skipItem(p));
    }
    return mFault == nullptr;
}

const char* XmlScan::skipItem(const char* p) {
    if (*p == '<') {
        return p[1] == '/' ? skipEndTag(p) : skipMarkup(p);
    }
    return mDepth > 0 ? skipText(p) : refuse(p, "Text outside of the root element.");
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
        return mDepth > 0 ? skipTo(p + 9, "]]>", "Error parsing CDATA.")
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
    mExtent.depth = std::max(mExtent.depth, mDepth + 1);
    if (mExtent.depth > mLimits.depth) {
        return refuse(tag, "Elements nested too deeply.");
    }
    const char* p = skipSpace(skipName(skipSpace(tag + 1)));
    for (int attributes = 0; *p != '\0'; p = skipSpace(p)) {
        if (*p == '/') {
            return p[1] == '>' ? p + 2 : mEnd;
        }
        if (*p == '>') {
            ++mDepth;
            return p + 1;
        }
        mExtent.attributes = std::max(mExtent.attributes, ++attributes);
        if (attributes > mLimits.attributes) {
            return refuse(tag, "Too many attributes of one element.");
        }
        p = skipAttribute(p);
    }
    return p;
}

// The second half. The parser itself finds out when the name is another.
const char* XmlScan::skipEndTag(const char* p) {
    if (mDepth == 0) {
        return refuse(p, "Error reading end tag.");
    }
    --mDepth;
    return skipTo(p, ">", "Error reading end tag.");
}

// TiXmlDeclaration::Parse, which also takes instructions whose names begin with xml.
const char* XmlScan::skipDeclaration(const char* declaration) {
    std::string_view encoding;
    const char* p = declaration + 5;
    while (*p != '\0' && *p != '>') {
        p = skipSpace(p);
        if (startsWithAnyCase(p, "encoding")) {
            p = skipAttribute(p, &encoding);
        } else if (startsWithAnyCase(p, "version") || startsWithAnyCase(p, "standalone")) {
            p = skipAttribute(p);
        } else {
            while (*p != '\0' && *p != '>' && !is(*p, space)) {
                ++p;
            }
        }
    }
    if (*p == '\0') {
        return refuse(declaration, "Error parsing Declaration.");
    }
    if (mDepth == 0) {
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
const char* XmlScan::skipAttribute(const char* p, std::string_view* value) const {
    p = skipSpace(skipName(p));
    if (*p != '=') {
        return mEnd;
    }
    p = skipSpace(p + 1);
    const bool quoted = *p == '"' || *p == '\'';
    const char* end = p;
    if (quoted) {
        end = skipQuoted(p);
    }
    while (!quoted && *end != '\0' && *end != '/' && *end != '>' && !is(*end, space)) {
        end = *end == '"' || *end == '\'' ? mEnd : end + 1;
    }
    if (value != nullptr) {
        *value =
            quoted && end - p >= 2 ? std::string_view(p + 1, end - 1) : std::string_view(p, end);
    }
    return end;
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
