// The settings and their files.
#include <Orlek/Misc/Property.h>
#include <Orlek/XML/XmlDocument.h>

#include <cstdlib>
#include <utility>

#include "config/NumberText.h"
#include "config/property/PropertyFile.h"
#include "config/property/PropertyTree.h"
#include "config/xml/XmlText.h"
#include "platform/ClassicNumber.h"
#include "platform/Report.h"

namespace Orlek::Misc {

namespace {

// One prefix serves all levels: each with its own would take the square of the file's size.
void readInto(std::map<std::string, std::string>& properties, const XML::XmlElement& element,
              std::string& prefix) {
    const std::string name = element.name();
    if (name == Detail::leafName) {
        auto [key, value] = Detail::readLeaf(element);
        key.insert(0, prefix);
        Detail::report("Property <%s> <%s>\n", key.c_str(), value.c_str());
        // A file that was written here has its keys in order: each new one comes last.
        properties.insert_or_assign(properties.end(), std::move(key), std::move(value));
        return;
    }
    const std::size_t length = prefix.size();
    prefix.append(name).push_back('.');
    for (auto child = element.firstElement(); child.valid(); child = child.nextElement()) {
        readInto(properties, child, prefix);
    }
    prefix.resize(length);
}

}  // namespace

Property& Property::instance() {
    static Property theInstance;
    return theInstance;
}

Property::Property() = default;
Property::~Property() = default;

void Property::setConfigFile(const std::string& path) {
    mConfigFile = path;
    readXmlFile(path);
}

bool Property::readXmlFile(const std::string& path) {
    XML::XmlDocument document;
    if (!document.read(path) || !Detail::keysInProportion(document.root())) {
        Detail::report("Error reading XML file <%s>!\n", path.c_str());
        return false;
    }
    XML::XmlElement child = document.root().firstElement();
    for (; child.valid(); child = child.nextElement()) {
        readElement(child, {});
    }
    return true;
}

bool Property::readXmlFile() {
    return readXmlFile(mConfigFile);
}

bool Property::readElement(XML::XmlElement& element, std::string prefix) {
    readInto(mProperties, element, prefix);
    return true;
}

bool Property::writeXmlFile(const std::string& path) {
    Detail::XmlOutput output(path);
    Detail::PropertyWriter writer;
    for (const auto& [key, value] : mProperties) {
        writer.add(key, value);
        output.pass(writer.text());
    }
    writer.finish();
    if (!output.finish(writer.text())) {
        Detail::report("Error writing property file <%s>!\n", path.c_str());
        return false;
    }
    return true;
}

bool Property::writeXmlFile() {
    return writeXmlFile(mConfigFile);
}

const std::string* Property::find(const std::string& key) const {
    const auto found = mProperties.find(key);
    return found != mProperties.end() ? &found->second : nullptr;
}

std::string Property::getString(const std::string& key, const std::string& defaultValue) const {
    const std::string* text = find(key);
    return text != nullptr ? *text : defaultValue;
}

int Property::getInt(const std::string& key, int defaultValue) const {
    const std::string* text = find(key);
    return text != nullptr ? static_cast<int>(std::strtol(text->c_str(), nullptr, 10))
                           : defaultValue;
}

double Property::getDouble(const std::string& key, double defaultValue) const {
    const std::string* text = find(key);
    return text != nullptr ? Detail::classicDouble(text->c_str()) : defaultValue;
}

bool Property::getSwitch(const std::string& key, bool defaultValue) const {
    const std::string* text = find(key);
    return text != nullptr ? *text == "true" || *text == "TRUE" || *text == "True" : defaultValue;
}

void Property::setString(const std::string& key, const std::string& value) {
    mProperties.insert_or_assign(key, value);
}

void Property::setInt(const std::string& key, int value) {
    setString(key, std::to_string(value));
}

void Property::setDouble(const std::string& key, double value) {
    setString(key, Detail::numberText(value));
}

void Property::setSwitch(const std::string& key, bool value) {
    setString(key, value ? "true" : "false");
}

void Property::strip(std::string& text, const std::string& characters) {
    text.erase(text.find_last_not_of(characters) + 1);  // npos + 1 is 0
    text.erase(0, text.find_first_not_of(characters));
}

}  // namespace Orlek::Misc
