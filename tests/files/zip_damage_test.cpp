// Archives that are cut, that lie, or that are none.
#include <Orlek/FileSystem/ZipFile.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <vector>

#include "files/ZipBuilder.h"
#include "platform/WholeFile.h"
#include "support/Capture.h"
#include "support/OpenFiles.h"
#include "support/TempDir.h"

namespace {

using namespace OrlekTest;
using Orlek::FileSystem::ZipFile;

// Deflate of 64 times "a", by zlib.
const std::string deflated("KL\xA4\x0C\x00\x00", 6);
const std::string inflated(64, 'a');

std::optional<std::string> readFirst(const std::string& path) {
    unsigned int size = 99;
    unsigned char* bytes = ZipFile(path).readFirstFile(size);
    if (bytes == nullptr) {
        EXPECT_EQ(size, 0U);
        return std::nullopt;
    }
    std::string text(reinterpret_cast<char*>(bytes), size);
    std::free(bytes);
    return text;
}

TEST(ZipDamage, ListsAndReadsWhatIsWholeWhereverTheFileIsCut) {
    std::vector<char> whole;
    ASSERT_TRUE(Orlek::Detail::readWholeFile(ORLEK_SOURCE_DIR "/tests/data/zip/python.zip", whole));
    struct Place {
        std::size_t headerEnd, dataEnd;
    };
    const std::vector<Place> places{{41, 928}, {971, 993}, {1028, 1030}, {1071, 1073}};
    const TempDir dir;
    const auto before = openFiles();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        ZipFile zip(dir.write("cut.zip", {whole.data(), length}));
        std::size_t listed = 0;
        std::size_t readable = 0;
        for (const Place& place : places) {
            listed += place.headerEnd <= length ? 1 : 0;
            readable += place.dataEnd <= length ? 1 : 0;
        }
        const std::vector<std::string> names = zip.getFiles();
        ASSERT_EQ(names.size(), listed) << length;
        // The last name stands for the first entry, so the one before is the last to tell.
        for (std::size_t i = 0; i < std::min<std::size_t>(names.size(), 3); ++i) {
            unsigned int size = 0;
            unsigned char* bytes = zip.readFile(names[i], size);
            ASSERT_EQ(bytes != nullptr, i < readable) << length << " " << names[i];
            std::free(bytes);
        }
    }
    EXPECT_EQ(openFiles(), before);
}

struct Lie {
    const char* what;
    LocalEntry entry;
    std::optional<std::string> content;
};

TEST(ZipDamage, RefusesSizesThatCannotBeTrue) {
    const auto entry = [](std::uint32_t compressed, std::uint32_t uncompressed) {
        LocalEntry result;
        result.data = deflated;
        result.compressedSize = compressed;
        result.uncompressedSize = uncompressed;
        return result;
    };
    LocalEntry described = entry(6, 64);
    described.flags = ZipFile::ZIP_BIT_DATA_DESC;
    LocalEntry noise = entry(6, 64);
    noise.data = "\xFF\xFF\xFF\xFF\xFF\xFF";
    const std::vector<Lie> rows{
        {"the truth", entry(6, 64), inflated},
        {"the truth, with a descriptor to follow", described, inflated},
        {"data beyond the end of the file", entry(7, 64), std::nullopt},
        {"nearly 4 GiB beyond the end", entry(0xFFFFFFFF, 0xFFFFFFFF), std::nullopt},
        {"more than deflate can hold", entry(6, 6 * 1032 + 1), std::nullopt},
        {"4 GiB of 6 bytes", entry(6, 0xFFFFFFFF), std::nullopt},
        {"content from no data", entry(0, 1), std::nullopt},
        {"nothing from no data", entry(0, 0), std::nullopt},
        {"compressed data cut by one byte", entry(5, 64), std::nullopt},
        {"content that does not fit", entry(6, 63), std::nullopt},
        {"content that should be empty", entry(6, 0), std::nullopt},
        {"content shorter than promised", entry(6, 70), inflated + std::string(6, '\0')},
        {"no deflate data", noise, std::nullopt},
    };
    const TempDir dir;
    for (const Lie& row : rows) {
        const std::string path = dir.write("lie.zip", archive(row.entry));
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(readFirst(path), row.content) << row.what; }), "");
        EXPECT_EQ(ZipFile(path).getFiles().size(), 1U) << row.what;
    }
}

TEST(ZipDamage, TakesNamesAndExtraFieldsOfAnyLength) {
    LocalEntry entry;
    entry.name = std::string(65535, 'n');
    entry.extra = std::string(65535, 'e');
    entry.data = deflated;
    entry.compressedSize = 6;
    entry.uncompressedSize = 64;
    const TempDir dir;
    const std::string path = dir.write("long.zip", archive(entry) + archive(entry));
    ZipFile zip(path);
    EXPECT_EQ(zip.getFiles(), (std::vector<std::string>{entry.name, entry.name}));
    EXPECT_EQ(readFirst(path), inflated);

    entry.name = std::string("up to\0the zero", 14);
    EXPECT_EQ(ZipFile(dir.write("zero.zip", archive(entry))).getFiles().at(0), "up to");
}

TEST(ZipDamage, EndsTheWalkAtFourGiB) {
    LocalEntry far;
    far.compressedSize = 0xFFFFFFFF;
    const TempDir dir;
    const std::string header = localHeader(far);
    const std::string path = dir.write("far.zip", header);
    std::filesystem::resize_file(path, header.size() + far.compressedSize);  // a hole
    std::ofstream(path, std::ios::binary | std::ios::app) << header << std::string(99, '\0');
    ZipFile zip(path);
    EXPECT_EQ(zip.getFiles().size(), 1U) << "the second one lies beyond 32 bits";
    EXPECT_EQ(readFirst(path), std::nullopt);
}

TEST(ZipDamage, SaysWhatItCannotOpenOnce) {
    const TempDir dir;
    ASSERT_EQ(mkfifo(dir.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {dir.path(), dir.path("missing"), dir.path("pipe")}) {
        ZipFile zip(path);
        EXPECT_FALSE(zip.exists());
        std::string errors;
        const std::string lines = captureStdout([&] {
            errors = captureStderr([&] {
                EXPECT_TRUE(zip.getFiles().empty());
                unsigned int size = 99;
                EXPECT_EQ(zip.readFirstFile(size), nullptr);
                EXPECT_EQ(size, 0U);
            });
        });
        EXPECT_EQ(lines, "could not open <" + path + ">\n");
        EXPECT_EQ(errors.rfind("fopen: ", 0), 0U) << errors;
    }
}

TEST(ZipDamage, FindsNoEntriesInOtherFiles) {
    const TempDir dir;
    for (const std::string content :
         {"", "P", "PK\3", "PK\5\6 the end of a directory", "some text"}) {
        const std::string path = dir.write("other", content);
        EXPECT_TRUE(ZipFile(path).exists());
        EXPECT_TRUE(ZipFile(path).getFiles().empty());
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(readFirst(path), std::nullopt); }), "");
    }
}

TEST(ZipDamage, SurvivesAFileThatChangesBetweenCalls) {
    LocalEntry entry;
    entry.data = deflated;
    entry.compressedSize = 6;
    entry.uncompressedSize = 64;
    const TempDir dir;
    const std::string path = dir.write("a.zip", archive(entry));
    ZipFile zip(path);
    ASSERT_EQ(zip.getFiles().size(), 1U);
    unsigned int size = 99;
    std::filesystem::resize_file(path, 36);
    EXPECT_EQ(zip.readFirstFile(size), nullptr);
    std::filesystem::remove(path);
    const std::string said = captureStdout(
        [&] { captureStderr([&] { EXPECT_EQ(zip.readFile("entry", size), nullptr); }); });
    EXPECT_EQ(said, "could not open <" + path + ">\n");
    EXPECT_EQ(size, 0U);
}

}  // namespace
