// The XML of a property file: the groups that are open while keys are written in their order, and
// the two directions of a leaf.
#pragma once

#include <Orlek/XML/XmlElement.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Orlek::Detail {

/// Adds leaves below a root. Keys with a common beginning are neighbours in the order of their
/// bytes, so a group that has been left never comes again.
class PropertyGroups {
public:
    explicit PropertyGroups(const XML::XmlElement& root) : mRoot(root) {}

    /// Adds a setting behind the others; keys must come in the order of their bytes.
    void add(const std::string& key, const std::string& value);

private:
    struct Group {
        std::size_t pathEnd;  ///< of its path within mPath
        XML::XmlElement element;
    };

    XML::XmlElement& enter(std::string_view groups);
    void leaveAllBut(std::string_view groups);

    XML::XmlElement mRoot;
    std::string mPath;  ///< of the open groups
    std::vector<Group> mOpen;
};

/// Whether the keys below a root take memory in proportion to the file: a long name of a group
/// above many leaves stands once there, but in each of their keys. What PropertyGroups adds always
/// does.
bool keysInProportion(const XML::XmlElement& root);

/// Key, without groups, and value of a leaf.
std::pair<std::string, std::string> readLeaf(const XML::XmlElement& leaf);

}  // namespace Orlek::Detail
