// Walks an XML text as TinyXML will, before TinyXML does: its parser recurses into every element,
// its list of attributes costs the square of their number, it takes much that is no XML, and until
// it comes to what it refuses it builds a tree of many times the text's size.
//
// The scan keeps in step with the parser (TinyXML 2.6.2): it takes the same bytes for names,
// quotes, references, comments and ends of tags, with the same two ways to count characters.
// Otherwise a text could nest deeper there than it seems to here. It refuses all that the parser
// refuses, in the same words and at the same place, and nothing that the parser takes but what is
// said below.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "config/xml/XmlCharacters.h"

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

    /// @param text followed by `padding` zero bytes; must outlive the scan.
    explicit XmlScan(std::string_view text, XmlLimits limits = {});

    /// Walks the text. False when it is beyond the limits or broken; fault() tells why. Broken is
    /// also what the parser would not notice outside of the root element: text, and what is not
    /// ended; and everywhere a tag that does not begin with a name. Nothing at all, or no more than
    /// space, is left to the parser.
    bool run();

    /// What is wrong, in words, and where.
    [[nodiscard]] const char* fault() const { return mFault; }
    [[nodiscard]] XmlPlace faultPlace() const {
        return mFaultAt != nullptr ? mText.placeOf(mFaultAt) : XmlPlace{};
    }

    /// The greatest depth and number of attributes seen.
    [[nodiscard]] const XmlLimits& extent() const { return mExtent; }

private:
    struct Attribute {
        const char* end = nullptr;
        std::string_view name{};
        std::string_view value{};
        bool broken = false;          ///< So that the parser says so of attributes, ...
        const char* where = nullptr;  ///< ... here, or without a place.
    };

    bool walk();

    // Every skip gives the end, where a zero byte stands, when what it skips is not whole.
    const char* skipItem(const char* p);
    const char* skipMarkup(const char* p);
    const char* skipStartTag(const char* p);
    const char* skipAttributes(const char* p, const char* tag);
    const char* skipEndTag(const char* p);
    const char* skipDeclaration(const char* p);
    const char* skipTo(const char* p, const char* end, const char* faultWithout);
    Attribute skipAttribute(const char* p) const;
    void skipUnquoted(Attribute& attribute) const;
    void takeEncoding(std::string_view name, const char* where);
    const char* firstTwin();
    const char* refuse(const char* where, const char* fault);
    const char* refuseInTag(const char* where, const char* fault);

    XmlCharacters mText;
    XmlLimits mLimits;
    XmlLimits mExtent{0, 0};
    std::vector<std::string_view> mOpen;   // names of elements
    std::vector<std::string_view> mNames;  // of the attributes of a tag
    const char* mFault = nullptr;
    const char* mFaultAt = nullptr;  // null: without a place
};

}  // namespace Orlek::Detail
