// Walks an XML text as TinyXML will, before TinyXML does: its parser recurses into every element,
// its list of attributes costs the square of their number, and it takes much that is no XML.
//
// The scan keeps in step with the parser (TinyXML 2.6.2): it takes the same bytes for names,
// quotes, references, comments and ends of tags, with the same two ways to count characters.
// Otherwise a text could nest deeper there than it seems to here. It need not judge what the parser
// judges itself: whatever follows an error within an element is never reached there.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace Orlek::Detail {

struct XmlLimits {
    int depth = 256;       ///< of an element, the root's being 1
    int attributes = 256;  ///< of one element
};

class XmlScan {
public:
    /// Zero bytes that must follow the text: the parser takes a character of several bytes at the
    /// end of a text for whole.
    static constexpr std::size_t padding = 4;

    /// @param text without zero bytes, followed by `padding` of them; must outlive the scan.
    explicit XmlScan(std::string_view text, XmlLimits limits = {});

    /// Walks the text. False when it must not be parsed or is broken where the parser would not
    /// notice; fault() tells why.
    bool run();

    /// What is wrong, in words, and where: an offset into the text.
    [[nodiscard]] const char* fault() const { return mFault; }
    [[nodiscard]] std::size_t faultOffset() const { return mFaultOffset; }

    /// The greatest depth and number of attributes seen.
    [[nodiscard]] const XmlLimits& extent() const { return mExtent; }

private:
    enum class Encoding { unknown, utf8, other };

    const char* skipItem(const char* p);
    const char* skipMarkup(const char* p);
    const char* skipStartTag(const char* p);
    const char* skipEndTag(const char* p);
    const char* skipDeclaration(const char* p);
    const char* skipTo(const char* p, const char* end, const char* faultWithout);
    const char* skipAttribute(const char* p, std::string_view* value = nullptr) const;
    const char* skipQuoted(const char* p) const;
    const char* skipText(const char* p) const;
    const char* skipCharacter(const char* p) const;
    const char* skipReference(const char* p) const;
    const char* skipName(const char* p) const;
    const char* skipSpace(const char* p) const;
    void takeEncoding(std::string_view name, const char* where);
    const char* refuse(const char* where, const char* fault);

    [[nodiscard]] bool is(char c, unsigned char kind) const {
        return (mKinds[static_cast<unsigned char>(c)] & kind) != 0;
    }

    // Every skip gives the end, where a zero byte stands, when what it skips is not whole.
    std::array<unsigned char, 256> mKinds;  // what the locale makes of each byte
    const char* mBegin;
    const char* mEnd;
    XmlLimits mLimits;
    XmlLimits mExtent{0, 0};
    int mDepth = 0;  // elements that are open
    Encoding mEncoding = Encoding::unknown;
    const char* mFault = nullptr;
    std::size_t mFaultOffset = 0;
};

}  // namespace Orlek::Detail
