// Elements written as text one after the other, byte for byte as a document that holds them is: for
// files of many elements, where building the document takes many times as long as printing it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Orlek::Detail {

class XmlStream {
public:
    /// Begins with the declaration of version 1.0 and UTF-8.
    XmlStream();

    /// Opens an element within those that are open.
    void open(std::string_view name);
    /// Adds an attribute to the element opened last, before anything is opened in it.
    void attribute(std::string_view name, const std::string& value);
    void close();

    /// The text so far. It may be taken away at any time.
    std::string& text() { return mText; }

private:
    std::string mText;
    std::vector<std::string> mOpen;
    bool mInTag = false;  // the tag opened last has no end yet
};

}  // namespace Orlek::Detail
