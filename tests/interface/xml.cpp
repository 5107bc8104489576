// Documents and elements of XML.
#include "interface.h"

#include <string>

namespace interface {
using namespace Orlek::XML;

void xml() {
    using Text = const std::string&;
    value<XmlDocument>();
    member<bool(Text)>(&XmlDocument::read);
    member<bool(Text)>(&XmlDocument::write);
    member<XmlElement() const>(&XmlDocument::root);
    member<void(XmlElement&)>(&XmlDocument::appendElement);
    member<void(XmlElement&, std::string&) const>(&XmlDocument::print);

    value<XmlElement>();
    made<XmlElement, Text>();
    member<TiXmlElement*() const>(&XmlElement::data);
    member<bool() const>(&XmlElement::valid);
    member<std::string() const>(&XmlElement::name);
    member<std::string() const>(&XmlElement::value);
    member<XmlElement() const>(&XmlElement::firstElement);
    member<XmlElement() const>(&XmlElement::nextElement);
    member<void(XmlElement&)>(&XmlElement::appendElement);
    member<std::string(Text, unsigned int) const>(&XmlElement::getAttributeString);
    member<int(Text, int) const>(&XmlElement::getAttributeInt);
    member<double(Text, double) const>(&XmlElement::getAttributeDouble);
    member<bool(Text, bool) const>(&XmlElement::getAttributeBool);
    member<void(Text, Text)>(&XmlElement::setAttributeString);
    member<void(Text, int)>(&XmlElement::setAttributeInt);
    member<void(Text, double)>(&XmlElement::setAttributeDouble);
    member<void(Text, int)>(&XmlElement::setAttributeHex);
    member<void(Text, bool)>(&XmlElement::setAttributeBool);
}

}  // namespace interface
