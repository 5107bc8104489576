// Archives as real writers make them.
#include <map>

#include "files/ZipReading.h"
#include "support/Capture.h"
#include "support/OpenFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::FileSystem::ZipFile;
using Names = std::vector<std::string>;

std::string numbers() {
    std::string text;
    for (int i = 0; i < 500; ++i) {
        text.append(std::to_string(i)).append("\n");
    }
    return text;
}

std::string zipData(const std::string& name) {
    return ORLEK_SOURCE_DIR "/tests/data/zip/" + name;
}

struct Writer {
    const char* archive;
    Names names;
    bool readable;
};

TEST(ZipFile, ReadsWhatRealWritersWrote) {
    const Names both{"numbers.txt", "sub/zeros.bin"};
    const std::map<std::string, std::string> contents{
        {"numbers.txt", numbers()}, {"sub/zeros.bin", std::string(5000, '\0')}, {"empty", ""}};
    const std::vector<Writer> writers{
        {"infozip.zip", both, true},
        {"sevenzip.zip", both, true},
        {"python.zip", {"numbers.txt", "sub/zeros.bin", "empty", "numbers.txt"}, true},
        {"stored.zip", {"numbers.txt"}, false},
        // Their local headers leave the compressed size to a descriptor behind the data.
        {"piped.zip", {"numbers.txt"}, false},
        {"bsdtar.zip", {"numbers.txt"}, false},
    };
    const auto before = openFiles();
    for (const Writer& writer : writers) {
        SCOPED_TRACE(writer.archive);
        ZipFile zip(zipData(writer.archive));
        EXPECT_TRUE(zip.exists());
        zip.getFiles();
        EXPECT_EQ(zip.getFiles(), writer.names) << "each time anew";
        EXPECT_EQ(zip.nrFiles(), writer.names.size());
        for (const std::string& name : writer.names) {
            const auto expected = writer.readable ? std::optional(contents.at(name)) : std::nullopt;
            EXPECT_EQ(readEntry(zip, name), expected) << name;
        }
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(ZipFile, FindsNamesByteByByteAndTheFirstOfEqualOnes) {
    ZipFile zip(zipData("python.zip"));
    EXPECT_EQ(readFirst(zip), numbers()) << "walks the archive by itself";
    EXPECT_EQ(zip.nrFiles(), 4U);
    for (const char* name : {"Numbers.txt", "numbers", ""}) {
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(readEntry(zip, name), std::nullopt); }), "");
    }
    EXPECT_EQ(readEntry(zip, "numbers.txt"), numbers()) << "not the empty one behind it";
}

}  // namespace
