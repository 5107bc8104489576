#pragma once

/// @file
/// An XML document: a file, or what becomes one.

#include <memory>
#include <string>

#include <Orlek/Export.h>
#include <Orlek/XML/XmlElement.h>

namespace Orlek::XML {

/// A document with its elements, read from a file or built and written.
///
/// The document owns its elements. Copies are deep. One thread at a time may use a document and its
/// elements; different documents are independent.
///
/// The parser is TinyXML, which is forgiving: it takes attributes without quotes, leaves the name
/// of a reference that it does not know, and passes over document types. What it would pass over
/// silently although the file is damaged is refused here: text outside of the root, tags that do
/// not begin with a name, and comments, declarations and tags without an end.
///
/// @code
/// Orlek::XML::XmlDocument document;
/// Orlek::XML::XmlElement route("route");
/// document.appendElement(route);
/// route.setAttributeDouble("distance", 12.5);
/// if (!document.write("route.xml")) complain();
/// @endcode
class ORLEK_EXPORT XmlDocument {
public:
    /// Makes a document with nothing but the declaration of version 1.0 and UTF-8.
    XmlDocument();
    /// Frees all elements of the document.
    ~XmlDocument();
    /// Makes a deep copy.
    XmlDocument(const XmlDocument& other);
    /// Replaces the document by a deep copy; its elements until now are freed.
    XmlDocument& operator=(const XmlDocument& other);

    /// Replaces the document by the content of a file.
    ///
    /// Only regular files are opened. Refused before they are parsed are files of more than 64 MiB,
    /// with zero bytes, with elements nested more than 256 deep, and with more than 256
    /// attributes of one element. What memory a file takes is in proportion to its size: about 10
    /// times as much for usual ones, at most some 100 times. A byte order mark or the declaration
    /// tells whether the bytes are UTF-8; others are taken one by one.
    /// @param path the file.
    /// @return true when it has been read. Otherwise the document is as it was, with two lines
    ///         printed on the standard output: the path, then row and column (from 1; also 1 when
    ///         it has none) and what is wrong: "Out of memory." when that ends, and what the parser
    ///         was about to add is lost then.
    bool read(const std::string& path);

    /// Writes the document so that the file holds the old content or the new one, whatever happens.
    ///
    /// The new content goes to a file beside the old one, is forced to the disk and takes the name
    /// over, so the call waits for the disk: tenths of a second on a busy one, without end on one
    /// that does not answer. A link stays a link, the mode stays as it was, the owner too where the
    /// system lets it; other names of the same file (hard links) keep the old content.
    /// @param path the file; created when it is missing, but not its directory.
    /// @return true when the content has reached the disk. False when it has not, when the path
    ///         names something that is no regular file or may not be written, when new files may
    ///         not be made beside it, when it is a mount point, and for what read() would refuse:
    ///         more than 64 MiB, 256 levels or 256 attributes of an element, a name that is none,
    ///         a quote in a declaration, a text that ends in the middle of a UTF-8 character.
    ///         Nothing is printed.
    bool write(const std::string& path);

    /// @return the first element of the document; invalid when there is none. As long as the
    ///         document lives and is not replaced.
    XmlElement root() const;

    /// Adds an element behind the others, which then belongs to the document. An element that has a
    /// place already is left where it is. Other programs want exactly one in a file.
    /// @param element stays a handle on the element.
    void appendElement(XmlElement& element);

    /// Writes an element with all that it holds as text, four blanks a level, however deep: a tree
    /// of n levels gives 4 n^2 bytes.
    /// @param element of any document, or of none.
    /// @param[out] out gets the text, which ends with a line feed; empty for an invalid element.
    void print(XmlElement& element, std::string& out) const;

private:
    struct Tree;
    std::unique_ptr<Tree> mTree;
};

}  // namespace Orlek::XML
