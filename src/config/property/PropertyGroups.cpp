#include "config/property/PropertyGroups.h"

#include <algorithm>

#include "config/property/PropertyTree.h"

namespace Orlek::Detail {

namespace {

XML::XmlElement makeLeaf(std::string_view key, const std::string& value) {
    XML::XmlElement leaf{std::string(leafName)};
    const bool plain = isUtf8(key) && isUtf8(value);
    leaf.setAttributeString("key", plain ? std::string(key) : escapeBytes(key));
    leaf.setAttributeString("value", plain ? value : escapeBytes(value));
    if (!plain) {
        leaf.setAttributeString("escape", "percent");
    }
    return leaf;
}

// Bytes that the keys below an element would have of their groups, and what allows them.
struct KeyBytes {
    std::size_t used = 0;
    std::size_t allowed = 0;

    void count(const XML::XmlElement& element, std::size_t prefix) {
        const std::string name = element.name();
        if (name == leafName) {
            used += prefix;
            allowed += longestGroups + 1;
            return;
        }
        allowed += 64 * name.size();
        for (auto child = element.firstElement(); child.valid(); child = child.nextElement()) {
            count(child, prefix + name.size() + 1);
        }
    }
};

}  // namespace

bool keysInProportion(const XML::XmlElement& root) {
    KeyBytes bytes;
    for (auto child = root.firstElement(); child.valid(); child = child.nextElement()) {
        bytes.count(child, 0);
    }
    return bytes.used <= bytes.allowed;
}

void PropertyGroups::add(const std::string& key, const std::string& value) {
    const bool sameGroup =
        !mPath.empty() && key.rfind('.') == mPath.size() && key.starts_with(mPath);
    const PropertyPlace place =
        sameGroup ? PropertyPlace{mPath, std::string_view(key).substr(mPath.size() + 1)}
                  : placeProperty(key);
    XML::XmlElement leaf = makeLeaf(place.leaf, value);
    // A leaf under the root leaves the groups open: a key that cannot be nested may stand among
    // those of a group.
    (place.groups.empty() ? mRoot : enter(place.groups)).appendElement(leaf);
}

void PropertyGroups::leaveAllBut(std::string_view groups) {
    const auto holds = [&](const Group& group) {
        return groups.starts_with(std::string_view(mPath).substr(0, group.pathEnd)) &&
               (groups.size() == group.pathEnd || groups[group.pathEnd] == '.');
    };
    while (!mOpen.empty() && !holds(mOpen.back())) {
        mOpen.pop_back();
    }
}

XML::XmlElement& PropertyGroups::enter(std::string_view groups) {
    if (groups == mPath) {
        return mOpen.back().element;
    }
    leaveAllBut(groups);
    mPath = groups;
    std::size_t start = mOpen.empty() ? 0 : mOpen.back().pathEnd + 1;
    while (start < groups.size()) {
        const std::size_t end = std::min(groups.find('.', start), groups.size());
        XML::XmlElement group{std::string(groups.substr(start, end - start))};
        (mOpen.empty() ? mRoot : mOpen.back().element).appendElement(group);
        mOpen.push_back({end, group});
        start = end + 1;
    }
    return mOpen.back().element;
}

std::pair<std::string, std::string> readLeaf(const XML::XmlElement& leaf) {
    constexpr unsigned int maxLength = 256;
    std::string key = leaf.getAttributeString("key", maxLength);
    std::string value = leaf.getAttributeString("value", maxLength);
    if (leaf.getAttributeString("escape", maxLength) == "percent") {
        return {unescapeBytes(key), unescapeBytes(value)};
    }
    return {std::move(key), std::move(value)};
}

}  // namespace Orlek::Detail
