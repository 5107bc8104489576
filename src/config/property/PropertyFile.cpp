#include "config/property/PropertyFile.h"

#include <algorithm>

#include "config/property/PropertyTree.h"

namespace Orlek::Detail {

namespace {

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

void PropertyWriter::add(const std::string& key, const std::string& value) {
    const bool sameGroup =
        !mOpen.empty() && key.rfind('.') == mPath.size() && key.starts_with(mPath);
    const PropertyPlace place =
        sameGroup ? PropertyPlace{mPath, std::string_view(key).substr(mPath.size() + 1)}
                  : placeProperty(key);
    // A key that cannot be nested may stand among those of a group, which stays open then.
    if (place.groups.empty() && !mOpen.empty()) {
        mUnderRoot.push_back({place.leaf, &value});
        return;
    }
    enter(place.groups);
    write({place.leaf, &value});
}

void PropertyWriter::finish() {
    leaveAllBut({});
    mXml.close();
}

void PropertyWriter::write(const Leaf& leaf) {
    const bool plain = isWritable(leaf.key) && isWritable(*leaf.value);
    mXml.open(leafName);
    mXml.attribute("key", plain ? std::string(leaf.key) : escapeBytes(leaf.key));
    mXml.attribute("value", plain ? *leaf.value : escapeBytes(*leaf.value));
    if (!plain) {
        mXml.attribute("escape", "percent");
    }
    mXml.close();
}

void PropertyWriter::leaveAllBut(std::string_view groups) {
    const auto holds = [&](std::size_t pathEnd) {
        return groups.starts_with(std::string_view(mPath).substr(0, pathEnd)) &&
               (groups.size() == pathEnd || groups[pathEnd] == '.');
    };
    while (!mOpen.empty() && !holds(mOpen.back())) {
        mXml.close();
        mOpen.pop_back();
    }
    if (mOpen.empty()) {
        std::ranges::for_each(mUnderRoot, [&](const Leaf& leaf) { write(leaf); });
        mUnderRoot.clear();
    }
}

void PropertyWriter::enter(std::string_view groups) {
    if (groups == mPath) {
        return;
    }
    leaveAllBut(groups);
    mPath = groups;
    std::size_t start = mOpen.empty() ? 0 : mOpen.back() + 1;
    while (start < groups.size()) {
        const std::size_t end = std::min(groups.find('.', start), groups.size());
        mXml.open(groups.substr(start, end - start));
        mOpen.push_back(end);
        start = end + 1;
    }
}

bool keysInProportion(const XML::XmlElement& root) {
    KeyBytes bytes;
    for (auto child = root.firstElement(); child.valid(); child = child.nextElement()) {
        bytes.count(child, 0);
    }
    return bytes.used <= bytes.allowed;
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
