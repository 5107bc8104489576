// The text of documents, byte for byte as TinyXML's SaveFile prints it, and its way to the disk.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/AtomicFile.h"

class TiXmlDocument;

namespace Orlek::Detail {

/// The largest file, in bytes.
inline constexpr std::uint64_t xmlFileLimit = std::uint64_t{64} << 20U;

/// A file that text replaces whole or not at all, taken piece by piece and refused when it could
/// not be read again.
class XmlOutput {
public:
    explicit XmlOutput(const std::string& path) : mGood(mFile.open(path)) {}

    /// Takes the text away when it has grown to a block.
    void pass(std::string& text);

    /// Takes the rest. True when all has reached the disk.
    bool finish(std::string_view rest);

private:
    void write(std::string_view text);

    AtomicFile mFile;
    bool mGood;
    std::uint64_t mSize = 0;
};

/// Appends the blanks before an element of that depth, the root's being 0.
void appendIndent(int depth, std::string& out);

/// Appends the document's text as a whole, as fprintf takes four times as long, without a byte
/// order mark. Recurses into elements.
void appendXmlText(const TiXmlDocument& document, std::string& out);

}  // namespace Orlek::Detail
