// Elements over TinyXML's: attributes with types and defaults.
#include <Orlek/XML/XmlElement.h>
#include <tinyxml.h>

#include <cstdlib>

#include "config/NumberText.h"
#include "platform/ClassicNumber.h"

namespace Orlek::XML {

namespace {

// The text of an attribute; null when it is missing.
const std::string* attribute(const TiXmlElement* node, const std::string& name) {
    return node != nullptr ? node->Attribute(name) : nullptr;
}

bool holds(const TiXmlNode* node, const TiXmlNode* inner) {
    if (node->NoChildren()) {  // without a walk, which would make long chains quadratic
        return inner == node;
    }
    while (inner != nullptr && inner != node) {
        inner = inner->Parent();
    }
    return inner == node;
}

}  // namespace

XmlElement::XmlElement() : mNode(nullptr) {}

XmlElement::XmlElement(const std::string& name) : mNode(new TiXmlElement(name)) {}

XmlElement::XmlElement(TiXmlElement* node) : mNode(node) {}

TiXmlElement* XmlElement::data() const {
    return mNode;
}

bool XmlElement::valid() const {
    return mNode != nullptr;
}

std::string XmlElement::name() const {
    return valid() ? mNode->ValueStr() : std::string();
}

std::string XmlElement::value() const {
    const char* text = valid() ? mNode->GetText() : nullptr;
    return text != nullptr ? text : "";
}

XmlElement XmlElement::firstElement() const {
    return XmlElement(valid() ? mNode->FirstChildElement() : nullptr);
}

XmlElement XmlElement::nextElement() const {
    return XmlElement(valid() ? mNode->NextSiblingElement() : nullptr);
}

void XmlElement::appendElement(XmlElement& child) {
    if (valid() && child.valid() && child.mNode->Parent() == nullptr &&
        !holds(child.mNode, mNode)) {
        mNode->LinkEndChild(child.mNode);
    }
}

std::string XmlElement::getAttributeString(const std::string& name,
                                           unsigned int /*maxLength*/) const {
    const std::string* text = attribute(mNode, name);
    return text != nullptr ? *text : std::string();
}

int XmlElement::getAttributeInt(const std::string& name, int defaultValue) const {
    const std::string* text = attribute(mNode, name);
    return text != nullptr ? static_cast<int>(std::strtol(text->c_str(), nullptr, 0))
                           : defaultValue;
}

double XmlElement::getAttributeDouble(const std::string& name, double defaultValue) const {
    const std::string* text = attribute(mNode, name);
    return text != nullptr ? Detail::classicDouble(text->c_str()) : defaultValue;
}

bool XmlElement::getAttributeBool(const std::string& name, bool defaultValue) const {
    const std::string* text = attribute(mNode, name);
    return text != nullptr ? *text == "true" : defaultValue;
}

void XmlElement::setAttributeString(const std::string& name, const std::string& value) {
    if (valid()) {
        mNode->SetAttribute(name, value);
    }
}

void XmlElement::setAttributeInt(const std::string& name, int value) {
    setAttributeString(name, std::to_string(value));
}

void XmlElement::setAttributeDouble(const std::string& name, double value) {
    setAttributeString(name, Detail::numberText(value));
}

void XmlElement::setAttributeHex(const std::string& name, int value) {
    setAttributeString(name, Detail::hexText(static_cast<unsigned int>(value)));
}

void XmlElement::setAttributeBool(const std::string& name, bool value) {
    setAttributeString(name, value ? "true" : "false");
}

}  // namespace Orlek::XML
