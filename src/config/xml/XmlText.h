// The text of documents and its way to the disk. Text is made byte for byte as TinyXML's SaveFile
// prints it, but in memory: through fprintf, piece by piece, that takes four times as long, and
// what is to replace a file whole is needed whole anyway.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class TiXmlDocument;

namespace Orlek::Detail {

/// The largest file, in bytes.
inline constexpr std::uint64_t xmlFileLimit = std::uint64_t{64} << 20U;

/// Replaces a file by a text that is not larger than can be read again.
bool writeXmlText(const std::string& path, std::string_view text);

/// Appends the blanks before an element of that depth, the root's being 0.
void appendIndent(int depth, std::string& out);

/// Appends the document's text, without a byte order mark. Recurses into elements.
void appendXmlText(const TiXmlDocument& document, std::string& out);

}  // namespace Orlek::Detail
