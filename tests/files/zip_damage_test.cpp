// Archives that are cut, that lie, or that are none.
#include <sys/stat.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

#include "files/ZipBuilder.h"
#include "files/ZipReading.h"
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

LocalEntry entryOf(std::uint32_t compressed = 6, std::uint32_t uncompressed = 64) {
    return {.data = deflated, .compressedSize = compressed, .uncompressedSize = uncompressed};
}

std::optional<std::string> firstOf(const std::string& path) {
    ZipFile zip(path);
    return readFirst(zip);
}

TEST(ZipDamage, ListsAndReadsWhatIsWholeWhereverTheFileIsCut) {
    std::vector<char> whole;
    ASSERT_TRUE(Orlek::Detail::readWholeFile(ORLEK_SOURCE_DIR "/tests/data/zip/python.zip", whole));
    constexpr struct {
        std::size_t headerEnd, dataEnd;
    } places[] = {{41, 928}, {971, 993}, {1028, 1030}, {1071, 1073}};
    const TempDir dir;
    const auto before = openFiles();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        ZipFile zip(dir.write("cut.zip", {whole.data(), length}));
        std::size_t listed = 0;
        std::size_t readable = 0;
        for (const auto& place : places) {
            listed += place.headerEnd <= length ? 1 : 0;
            readable += place.dataEnd <= length ? 1 : 0;
        }
        const std::vector<std::string> names = zip.getFiles();
        ASSERT_EQ(names.size(), listed) << length;
        // The last name stands for the first entry, so the one before is the last to tell.
        for (std::size_t i = 0; i < std::min<std::size_t>(names.size(), 3); ++i) {
            ASSERT_EQ(readEntry(zip, names[i]).has_value(), i < readable) << length;
        }
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(ZipDamage, RefusesSizesThatCannotBeTrue) {
    LocalEntry described = entryOf();
    described.flags = ZipFile::ZIP_BIT_DATA_DESC;
    LocalEntry noise = entryOf();
    noise.data = "\xFF\xFF\xFF\xFF\xFF\xFF";
    struct {
        const char* what;
        LocalEntry entry;
        std::optional<std::string> content = std::nullopt;
    } const rows[] = {
        {"the truth", entryOf(), inflated},
        {"the truth, with a descriptor to follow", described, inflated},
        {"data beyond the end of the file", entryOf(7, 64)},
        {"nearly 4 GiB beyond the end", entryOf(0xFFFFFFFF, 0xFFFFFFFF)},
        {"more than deflate can hold", entryOf(6, 6 * 1032 + 1)},
        {"4 GiB of 6 bytes", entryOf(6, 0xFFFFFFFF)},
        {"content from no data", entryOf(0, 1)},
        {"nothing from no data", entryOf(0, 0)},
        {"compressed data cut by one byte", entryOf(5, 64)},
        {"content that does not fit", entryOf(6, 63)},
        {"content that should be empty", entryOf(6, 0)},
        {"content shorter than promised", entryOf(6, 70), inflated + std::string(6, '\0')},
        {"no deflate data", noise},
    };
    const TempDir dir;
    for (const auto& row : rows) {
        const std::string path = dir.write("lie.zip", archive(row.entry));
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(firstOf(path), row.content) << row.what; }), "");
        EXPECT_EQ(ZipFile(path).getFiles().size(), 1U) << row.what;
    }
    const std::string two = archive(described) + std::string(12, 'd') + archive(entryOf());
    EXPECT_EQ(ZipFile(dir.write("two.zip", two)).getFiles().size(), 2U) << "behind a descriptor";
}

// What is left of a large entry is zero although its memory has been in use.
TEST(ZipDamage, FillsALargePromiseWithZeroes) {
    constexpr std::uint32_t length = 9000, promised = 6'000'000;
    const std::string content(length, 'c');
    LocalEntry entry;
    entry.data = "\x01" + littleEndian(length, 2) + littleEndian(~length, 2) + content;  // stored
    entry.compressedSize = static_cast<std::uint32_t>(entry.data.size());
    entry.uncompressedSize = promised;
    const TempDir dir;
    const std::string path = dir.write("large.zip", archive(entry));
    for (int i = 0; i < 3; ++i) {
        unsigned size = 0;
        unsigned char* const bytes = ZipFile(path).readFirstFile(size);
        ASSERT_TRUE(bytes != nullptr && size == promised);
        const std::string got(reinterpret_cast<char*>(bytes), size);
        EXPECT_TRUE(got == content + std::string(promised - length, '\0'));
        std::memset(bytes, 'x', size);
        std::free(bytes);
    }
}

TEST(ZipDamage, TakesNamesAndExtraFieldsOfAnyLength) {
    LocalEntry entry = entryOf();
    entry.name = std::string(65535, 'n');
    entry.extra = std::string(65535, 'e');
    const TempDir dir;
    const std::string path = dir.write("long.zip", archive(entry) + archive(entry));
    ZipFile zip(path);
    EXPECT_EQ(zip.getFiles(), (std::vector<std::string>{entry.name, entry.name}));
    EXPECT_EQ(firstOf(path), inflated);

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
    EXPECT_EQ(firstOf(path), std::nullopt);
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
                EXPECT_EQ(readFirst(zip), std::nullopt);
            });
        });
        EXPECT_EQ(lines, "could not open <" + path + ">\n");
        EXPECT_EQ(errors.rfind("fopen: ", 0), 0U) << errors;
    }
}

TEST(ZipDamage, SurvivesAFileThatChangesBetweenCalls) {
    const TempDir dir;
    const std::string path = dir.write("a.zip", archive(entryOf()));
    ZipFile zip(path);
    ASSERT_EQ(zip.getFiles().size(), 1U);
    std::filesystem::resize_file(path, 36);
    EXPECT_EQ(readFirst(zip), std::nullopt);
    std::filesystem::remove(path);
    captureStdout(
        [&] { captureStderr([&] { EXPECT_EQ(readEntry(zip, "entry"), std::nullopt); }); });
}

}  // namespace
