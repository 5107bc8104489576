// Any keys and values, as the bytes between zero bytes give them, or with \x01 for them where the
// input begins with one: all that is written must come back from the file.
#include <Orlek/XML/XmlDocument.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "config/property/PropertyFile.h"
#include "config/property/PropertyTree.h"
#include "config/xml/XmlText.h"
#include "support/WholeText.h"

namespace {

using Orlek::XML::XmlDocument;
using Orlek::XML::XmlElement;
using Settings = std::map<std::string, std::string>;

void check(bool held) {
    if (!held) {
        std::abort();
    }
}

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
            check(settings.emplace(prefix + key, value).second);
        } else {
            readBelow(e, prefix + e.name() + ".", settings);
        }
    }
}

std::string filePath() {
    const auto name = "orlek-fuzz-" + std::to_string(getpid()) + ".xml";
    return (std::filesystem::temp_directory_path() / name).string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Settings settings = settingsOf({reinterpret_cast<const char*>(data), size});
    Orlek::Detail::PropertyWriter writer;
    for (const auto& [key, value] : settings) {
        writer.add(key, value);
    }
    const std::string path = filePath();
    writer.finish();
    const std::string written = writer.text();
    check(Orlek::Detail::XmlOutput(path).finish(written));
    XmlDocument back;
    check(back.read(path));
    check(back.write(path));
    check(OrlekTest::wholeText(path) == written);  // a document writes it the same way
    std::filesystem::remove(path);
    check(Orlek::Detail::keysInProportion(back.root()));
    Settings read;
    readBelow(back.root(), {}, read);
    check(read == settings);
    return 0;
}
