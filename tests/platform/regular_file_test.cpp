#include "platform/RegularFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <vector>

#include "platform/MallocArray.h"
#include "platform/WholeFile.h"
#include "support/OpenFiles.h"
#include "support/TempDir.h"

namespace {

using namespace Orlek::Detail;
using namespace OrlekTest;

std::string text(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(RegularFile, ReadsAnywhereAndStopsAtTheEnd) {
    const TempDir dir;
    RegularFile file;
    ASSERT_TRUE(file.open(dir.write("digits", "0123456789")));
    EXPECT_EQ(file.size(), 10U);
    std::array<std::byte, 4> four{};
    EXPECT_EQ(file.readAt(3, four), 4U);
    EXPECT_EQ(text(four), "3456");
    EXPECT_EQ(file.readAt(8, four), 2U);
    EXPECT_EQ(text(std::span(four).first(2)), "89");
    EXPECT_EQ(file.readAt(10, four), 0U);
    EXPECT_EQ(file.readAt(std::uint64_t{1} << 40U, four), 0U);
}

TEST(RegularFile, OwnsItsDescriptorThroughMovesAndReopening) {
    const TempDir dir;
    const std::string path = dir.write("a", "a");
    const auto before = openFiles();
    {
        RegularFile first;
        ASSERT_TRUE(first.open(path));
        ASSERT_TRUE(first.open(path));
        RegularFile second = std::move(first);
        RegularFile third;
        third = std::move(second);
        EXPECT_EQ(third.size(), 1U);
        EXPECT_EQ(openFiles(), before + 1);
    }
    EXPECT_EQ(openFiles(), before);
}

// Each would hang, mislead or kill a reader that takes what it gets.
TEST(RegularFile, RefusesWhatIsNoRegularFile) {
    const TempDir dir;
    ASSERT_EQ(mkfifo(dir.path("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("nowhere", dir.path("broken"));
    std::filesystem::create_symlink("circle", dir.path("circle"));
    const std::vector<std::pair<std::string, int>> rows = {
        {dir.path(), EISDIR},
        {dir.path("pipe"), ENOTSUP},
        {"/dev/zero", ENOTSUP},
        {dir.path("missing"), ENOENT},
        {dir.path("broken"), ENOENT},
        {dir.path("circle"), ELOOP},
        {std::string(5000, 'x'), ENAMETOOLONG},
        {"", ENOENT},
        {dir.write("file", "") + std::string("\0", 1), ENOENT},
    };
    const auto before = openFiles();
    for (const auto& [path, error] : rows) {
        RegularFile file;
        errno = 0;
        EXPECT_FALSE(file.open(path)) << path;
        EXPECT_EQ(errno, error) << path;
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(WholeFile, GivesAllBytesOrNone) {
    const TempDir dir;
    std::vector<char> bytes{'x'};
    EXPECT_TRUE(readWholeFile(dir.write("empty", ""), bytes));
    EXPECT_TRUE(bytes.empty());
    const std::string content("a\0b\r\n\xFF", 6);
    EXPECT_TRUE(readWholeFile(dir.write("bytes", content), bytes));
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), content);
    EXPECT_FALSE(readWholeFile(dir.path(), bytes));
    EXPECT_EQ(errno, EISDIR);
    EXPECT_TRUE(bytes.empty());
}

TEST(WholeFile, RefusesSparseGiants) {
    const TempDir dir;
    const std::string giant = dir.write("giant", "");
    std::filesystem::resize_file(giant, wholeFileLimit + 1);
    std::vector<char> bytes;
    EXPECT_FALSE(readWholeFile(giant, bytes));
    EXPECT_EQ(errno, EFBIG);
    EXPECT_EQ(bytes.capacity(), 0U);
}

TEST(MallocArray, IsWritableToItsLastByteAndNullWhenTooLarge) {
    constexpr std::size_t largePage = std::size_t{2} << 20U;
    for (const std::size_t size :
         {std::size_t{1}, largePage - 1, largePage, largePage + 4095, 2 * largePage + 12345}) {
        const MallocArray<std::byte> bytes = mallocArray<std::byte>(size);
        ASSERT_TRUE(bytes) << size;
        bytes[0] = std::byte{1};
        bytes[size - 1] = std::byte{2};
        EXPECT_EQ(bytes[size - 1], std::byte{2});
    }
    EXPECT_FALSE(mallocArray<std::int16_t>(std::numeric_limits<std::size_t>::max() / 2 + 2));
}

}  // namespace
