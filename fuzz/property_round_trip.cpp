// Any keys and values, as the bytes between zero bytes give them, or with \x01 for them where the
// input begins with one: all that is written must come back from the file.
#include <Orlek/XML/XmlDocument.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzTarget.h"
#include "config/property/PropertyFile.h"
#include "config/property/PropertyTree.h"
#include "config/xml/XmlText.h"
#include "platform/WholeFile.h"
#include "support/TempDir.h"

namespace {

using Orlek::XML::XmlDocument;
using Orlek::XML::XmlElement;
using Settings = std::map<std::string, std::string>;

// Pieces of the input, key and value by turns.
Settings settingsOf(std::string_view input) {
    const char separator = input.starts_with('\x01') ? '\x01' : '\0';
    Settings settings;
    std::string key;
    bool isKey = true;
    while (!input.empty()) {
        const std::string piece(input.substr(0, input.find(separator)));
        input.remove_prefix(std::min(input.size(), piece.size() + 1));
        if (!isKey) {
            settings[key] = piece;
        }
        key = piece;
        isKey = !isKey;
    }
    return settings;
}

void readBelow(const XmlElement& parent, const std::string& prefix, Settings& settings) {
    for (XmlElement e = parent.firstElement(); e.valid(); e = e.nextElement()) {
        if (e.name() == Orlek::Detail::leafName) {
            const auto [key, value] = Orlek::Detail::readLeaf(e);
            require(settings.emplace(prefix + key, value).second);
        } else {
            readBelow(e, prefix + e.name() + ".", settings);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Settings settings = settingsOf({reinterpret_cast<const char*>(data), size});
    Orlek::Detail::PropertyWriter writer;
    for (const auto& [key, value] : settings) {
        writer.add(key, value);
    }
    static const OrlekTest::TempDir dir;
    const std::string path = dir.path("settings.xml");
    writer.finish();
    const std::string written = writer.text();
    require(Orlek::Detail::XmlOutput(path).finish(written));
    XmlDocument back;
    require(back.read(path));
    require(back.write(path));
    std::vector<char> again;
    require(Orlek::Detail::readWholeFile(path, again));
    require(std::ranges::equal(again, written));  // a document writes it the same way
    require(Orlek::Detail::keysInProportion(back.root()));
    Settings read;
    readBelow(back.root(), {}, read);
    require(read == settings);
    return 0;
}
