#pragma once

/// @file
/// An element of an XML document.

#include <string>

#include <Orlek/Export.h>

class TiXmlElement;

namespace Orlek::XML {

/// A handle on one element: its name, text, children and attributes.
///
/// The handle owns nothing: copies stand for the same element, and it is good as long as the
/// XmlDocument that holds the element lives and is neither read into nor assigned to. An element
/// that was made here belongs to a document or to another element once it has been appended; one
/// that is never appended is never freed.
///
/// An invalid handle has no element: asking it gives empty texts, the defaults and invalid handles,
/// changing it does nothing. One thread at a time may use a document and its elements.
///
/// Numbers are read and written the same way whatever the locale of the process.
///
/// @code
/// for (Orlek::XML::XmlElement e = document.root().firstElement(); e.valid(); e = e.nextElement())
///     use(e.name(), e.getAttributeInt("width", 800));
/// @endcode
class ORLEK_EXPORT XmlElement {
public:
    /// Makes an invalid handle.
    XmlElement();

    /// Makes a new element that belongs to nobody yet.
    /// @param name the tag, as it will stand in the file: it is not checked, and a name that XML
    ///        does not allow gives a file that cannot be read.
    explicit XmlElement(const std::string& name);

    /// @return the element as the XML library has it, null for an invalid handle; not owned.
    TiXmlElement* data() const;

    /// @return whether there is an element.
    bool valid() const;

    /// @return the tag.
    std::string name() const;

    /// @return the text when the first child is text, otherwise an empty string. White space is
    ///         condensed to single blanks and trimmed when a file is read.
    std::string value() const;

    /// @return the first child that is an element; invalid when there is none.
    XmlElement firstElement() const;

    /// @return the next element with the same parent, past comments and text; invalid after the
    /// last.
    XmlElement nextElement() const;

    /// Adds an element behind the other children, which then belongs to this one.
    ///
    /// An element that has a place already, or that holds this one, is left where it is. Elements
    /// may be nested as deep as memory goes, but not all of the library's work is done without
    /// recursion: keep to the 256 levels that can be read back.
    /// @param child stays a handle on the element.
    void appendElement(XmlElement& child);

    /// Asks for an attribute.
    /// @param name case-sensitive.
    /// @param maxLength is not looked at; the value comes whole.
    /// @return its text; empty when it is missing.
    std::string getAttributeString(const std::string& name, unsigned int maxLength) const;

    /// Asks for an attribute as a whole number by the rules of `strtol` with base 0: decimal,
    /// hexadecimal after 0x, octal after 0, up to the first character that does not fit.
    /// @return the number, its lower 32 bits when it is larger (from 2^63 on -1, as `strtol` gives
    ///         the largest it has; 0 below -2^63), 0 when the text is none;
    ///         @p defaultValue when the attribute is missing.
    int getAttributeInt(const std::string& name, int defaultValue) const;

    /// Asks for an attribute as a number by the rules of `strtod`, with a point in every locale.
    /// @return the number, 0 when the text is none; @p defaultValue when the attribute is missing.
    double getAttributeDouble(const std::string& name, double defaultValue) const;

    /// Asks for an attribute as a truth value.
    /// @return whether the text is exactly "true"; @p defaultValue when the attribute is missing.
    bool getAttributeBool(const std::string& name, bool defaultValue) const;

    /// Sets an attribute, adding it behind the others when it is new.
    /// @param name as it will stand in the file: not checked.
    /// @param value any text, in UTF-8 unless the declaration of its document says otherwise. In a
    ///        file, control characters other than tab, line feed and carriage
    ///        return become references that only this library reads back.
    void setAttributeString(const std::string& name, const std::string& value);

    /// Sets an attribute to a decimal number.
    void setAttributeInt(const std::string& name, int value);

    /// Sets an attribute to a number with 6 significant digits (3.14159, 1e-07).
    void setAttributeDouble(const std::string& name, double value);

    /// Sets an attribute to a hexadecimal number: 0xff for 255, 0xffffffff for -1.
    void setAttributeHex(const std::string& name, int value);

    /// Sets an attribute to "true" or "false".
    void setAttributeBool(const std::string& name, bool value);

private:
    friend class XmlDocument;

    explicit XmlElement(TiXmlElement* node);

    TiXmlElement* mNode;
};

}  // namespace Orlek::XML
