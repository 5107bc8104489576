// The text of a document, byte for byte as TinyXML's SaveFile prints it, but into memory: piece by
// piece through fprintf that takes four times as long, and a file that is to be replaced whole
// needs the text whole anyway.
#pragma once

#include <string>

class TiXmlDocument;

namespace Orlek::Detail {

/// Appends the document's text, without a byte order mark. Recurses into elements.
void appendXmlText(const TiXmlDocument& document, std::string& out);

}  // namespace Orlek::Detail
