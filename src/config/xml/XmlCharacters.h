// The characters of an XML text, taken as TinyXML 2.6.2 takes them: what is space and what a name,
// how many bytes belong together, what a reference is, and in which row and column it counts them.
#pragma once

#include <array>
#include <string_view>

namespace Orlek::Detail {

/// Where something is in a text, from 1, as the parser counts for people: a character is a column,
/// a tab leads to the next fourth one.
struct XmlPlace {
    int row = 1;
    int column = 1;
};

bool startsWith(const char* p, std::string_view word);
bool startsWithAnyCase(const char* p, std::string_view word);

class XmlCharacters {
public:
    enum class Encoding { unknown, utf8, other };

    /// Kinds of bytes, to be added up. Plain is what is a character by itself in any encoding and
    /// ends nothing.
    enum Kind : unsigned char { space = 1, nameStart = 2, nameOther = 4, plain = 8 };

    /// @param text followed by zero bytes, as many as a character has; must outlive the object.
    explicit XmlCharacters(std::string_view text);

    [[nodiscard]] const char* begin() const { return mBegin; }
    [[nodiscard]] const char* end() const { return mEnd; }

    [[nodiscard]] Encoding encoding() const { return mEncoding; }
    void setEncoding(Encoding encoding) { mEncoding = encoding; }

    [[nodiscard]] bool is(char c, unsigned int kinds) const {
        return (mKinds[static_cast<unsigned char>(c)] & kinds) != 0;
    }

    // Every skip gives the end, where a zero byte stands, when what it skips is not whole.
    const char* skipSpace(const char* p) const;
    const char* skipName(const char* p) const;
    const char* skipCharacter(const char* p) const;
    /// Up to the next tag.
    const char* skipText(const char* p) const;
    /// Up to the quote that stands at p.
    const char* skipQuoted(const char* p) const;

    [[nodiscard]] XmlPlace placeOf(const char* where) const;

private:
    const char* skipReference(const char* p) const;

    std::array<unsigned char, 256> mKinds;  // what the locale makes of each byte
    const char* mBegin;
    const char* mEnd;
    Encoding mEncoding = Encoding::unknown;
};

}  // namespace Orlek::Detail
