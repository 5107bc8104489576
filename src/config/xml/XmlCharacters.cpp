// Where a rule looks odd, it is the parser's: every function names what it follows there. The
// functions of <cctype> follow the locale of the process as those of the parser do.
#include "config/xml/XmlCharacters.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>

namespace Orlek::Detail {

namespace {

constexpr int tabWidth = 4;

// TiXmlBase::IsWhiteSpace, IsAlpha and IsAlphaNum: all that is not ASCII is a letter.
unsigned char kindOf(unsigned char byte) {
    using Kinds = XmlCharacters;
    const bool letter = byte == '_' || byte >= 127 || std::isalpha(byte) != 0;
    const bool other = byte == '-' || byte == '.' || byte == ':' || std::isalnum(byte) != 0;
    const bool special =
        byte == 0 || byte >= 0x80 || byte == '&' || byte == '<' || byte == '"' || byte == '\'';
    return static_cast<unsigned char>(
        (std::isspace(byte) != 0 ? Kinds::space : 0) | (letter ? Kinds::nameStart : 0) |
        (other ? Kinds::nameOther : 0) | (special ? 0 : Kinds::plain));
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

bool startsWith(const char* p, std::string_view word) {
    return std::strncmp(p, word.data(), word.size()) == 0;
}

// The signed char is handed on as it is, as TiXmlBase::ToLower does.
bool startsWithAnyCase(const char* p, std::string_view word) {
    return std::equal(word.begin(), word.end(), p, [](char expected, char c) {
        return std::tolower(c) == std::tolower(expected);
    });
}

XmlCharacters::XmlCharacters(std::string_view text)
    : mBegin(text.data()), mEnd(text.data() + text.size()) {
    for (std::size_t byte = 0; byte < mKinds.size(); ++byte) {
        mKinds[byte] = kindOf(static_cast<unsigned char>(byte));
    }
}

// TiXmlParsingData::Stamp.
XmlPlace XmlCharacters::placeOf(const char* where) const {
    XmlPlace place;
    int column = 0;
    for (const char* p = mBegin; p < where;) {
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

// TiXmlBase::ReadText up to the quote that stands at p.
const char* XmlCharacters::skipQuoted(const char* p) const {
    const char quote = *p++;
    while (*p != '\0' && *p != quote) {
        p = skipCharacter(p);
    }
    return p < mEnd ? p + 1 : mEnd;
}

// TiXmlBase::ReadText up to the next tag.
const char* XmlCharacters::skipText(const char* p) const {
    while (*p != '\0' && *p != '<') {
        p = is(*p, space | plain) ? p + 1 : skipCharacter(p);
    }
    return p;
}

// TiXmlBase::GetChar: in UTF-8 the first byte of a character takes the next ones with it, be they
// quotes or angle brackets.
const char* XmlCharacters::skipCharacter(const char* p) const {
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
const char* XmlCharacters::skipReference(const char* p) const {
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
const char* XmlCharacters::skipName(const char* p) const {
    if (!is(*p, nameStart)) {
        return mEnd;
    }
    while (is(*p, nameStart | nameOther)) {
        ++p;
    }
    return p;
}

// TiXmlBase::SkipWhiteSpace.
const char* XmlCharacters::skipSpace(const char* p) const {
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
