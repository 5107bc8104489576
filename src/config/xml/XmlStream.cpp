#include "config/xml/XmlStream.h"

#include <tinyxml.h>

#include "config/xml/XmlText.h"

namespace Orlek::Detail {

XmlStream::XmlStream() {
    TiXmlDeclaration("1.0", "UTF-8", "").Print(nullptr, 0, &mText);
    mText += '\n';
}

void XmlStream::open(std::string_view name) {
    if (mInTag) {
        mText += '>';
    }
    if (!mOpen.empty()) {
        mText += '\n';
    }
    appendIndent(static_cast<int>(mOpen.size()), mText);
    mText += '<';
    mText += name;
    mOpen.emplace_back(name);
    mInTag = true;
}

void XmlStream::attribute(std::string_view name, const std::string& value) {
    const char quote = value.find('"') == std::string::npos ? '"' : '\'';
    mText += ' ';
    mText += name;
    mText += '=';
    mText += quote;
    TiXmlBase::EncodeString(value, &mText);
    mText += quote;
}

void XmlStream::close() {
    const std::string name = std::move(mOpen.back());
    mOpen.pop_back();
    if (mInTag) {
        mText += " />";
    } else {
        mText += '\n';
        appendIndent(static_cast<int>(mOpen.size()), mText);
        mText.append("</").append(name).append(">");
    }
    mInTag = false;
    if (mOpen.empty()) {
        mText += '\n';
    }
}

}  // namespace Orlek::Detail
