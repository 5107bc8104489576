// The XML of a property file: keys written in their order, and leaves read.
#pragma once

#include <Orlek/XML/XmlElement.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "config/xml/XmlStream.h"

namespace Orlek::Detail {

/// Writes settings, which must come in the order of their keys' bytes. Keys with a common beginning
/// are neighbours then, so a group that has been left never comes again.
class PropertyWriter {
public:
    PropertyWriter() { mXml.open("Properties"); }

    /// Key and value must live until finish() has been called.
    void add(const std::string& key, const std::string& value);

    /// Completes the text, once all settings have been added.
    void finish();

    /// The text so far. It may be taken away at any time.
    std::string& text() { return mXml.text(); }

private:
    struct Leaf {
        std::string_view key;
        const std::string* value;
    };

    void enter(std::string_view groups);
    void leaveAllBut(std::string_view groups);
    void write(const Leaf& leaf);

    XmlStream mXml;
    std::string mPath;               ///< of the open groups, joined by dots
    std::vector<std::size_t> mOpen;  ///< where the path of each of them ends
    std::vector<Leaf> mUnderRoot;    ///< to be written when no group is open
};

/// Whether the keys below a root take memory in proportion to the file: a long name of a group
/// above many leaves stands once there, but in each of their keys. What PropertyWriter writes
/// always does.
bool keysInProportion(const XML::XmlElement& root);

/// Key, without groups, and value of a leaf.
std::pair<std::string, std::string> readLeaf(const XML::XmlElement& leaf);

}  // namespace Orlek::Detail
