#include "files/InflateStream.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>
#include <random>
#include <vector>

#include "support/OpenFiles.h"
#include "support/TempDir.h"

namespace {

using Orlek::Detail::InflateStream;
using namespace OrlekTest;

// Half noise, half repetition: compressed it spans several chunks of the reader.
std::string sample() {
    std::mt19937 random(1);
    std::string text(400000, 'r');
    for (std::size_t i = 0; i < text.size() / 2; ++i) {
        text[i] = static_cast<char>(random());
    }
    return text;
}

std::string deflateRaw(const std::string& text) {
    uLongf size = compressBound(text.size());
    std::string out(size, '\0');
    EXPECT_EQ(compress2(reinterpret_cast<Bytef*>(out.data()), &size,
                        reinterpret_cast<const Bytef*>(text.data()), text.size(), Z_BEST_SPEED),
              Z_OK);
    return out.substr(2, size - 6);  // without the header and the checksum of RFC 1950
}

std::string readAll(InflateStream& stream, std::size_t pieceSize) {
    std::string text;
    std::vector<std::byte> piece(pieceSize);
    std::size_t got = 0;
    do {
        if (text.size() % 3 != 0) {
            stream.atEnd();  // looks ahead, and must lose nothing
        }
        got = stream.read(piece);
        text.append(reinterpret_cast<char*>(piece.data()), got);
    } while (got == piece.size());
    return text;
}

class InflateStreamTest : public testing::Test {
protected:
    const std::string mText = sample();
    const std::string mData = deflateRaw(mText);
    const std::uint32_t mSize = static_cast<std::uint32_t>(mData.size());
    const TempDir mDir;
    const std::string mPath = mDir.write("stream", "head" + mData + "tail");

    bool open(InflateStream& stream, std::uint64_t offset, std::uint32_t size) const {
        Orlek::Detail::RegularFile file;
        EXPECT_TRUE(file.open(mPath));
        return stream.open(std::move(file), offset, size);
    }
};

TEST_F(InflateStreamTest, GivesTheSameBytesInPiecesOfAnySize) {
    ASSERT_GT(mData.size(), 3U * 64 * 1024);
    const auto before = openFiles();
    InflateStream stream;
    for (const std::size_t pieceSize : {1UL, 257UL, 307456UL, mText.size(), 1000000UL}) {
        ASSERT_TRUE(open(stream, 4, mSize));
        EXPECT_FALSE(stream.atEnd());
        EXPECT_EQ(readAll(stream, pieceSize), mText) << pieceSize;
        EXPECT_TRUE(stream.atEnd());
        EXPECT_EQ(readAll(stream, pieceSize), "");
    }
    stream = InflateStream();
    EXPECT_EQ(openFiles(), before);
}

TEST_F(InflateStreamTest, TellsAFileThatShrankFromADamagedStream) {
    for (const std::uint32_t left : {0U, 100U, 64U * 1024, 100000U, mSize - 1}) {
        InflateStream stream;
        ASSERT_TRUE(open(stream, 4, mSize));
        std::filesystem::resize_file(mPath, 4 + left);
        readAll(stream, 1000);
        EXPECT_FALSE(stream.atEnd());
        EXPECT_TRUE(stream.isCut()) << left;
        mDir.write("stream", "head" + mData + "tail");
    }
    InflateStream stream;
    ASSERT_TRUE(open(stream, 4, mSize - 1));
    readAll(stream, 1000);
    EXPECT_FALSE(stream.atEnd());
    EXPECT_FALSE(stream.isCut());
}

TEST_F(InflateStreamTest, RefusesRangesOutsideTheFile) {
    InflateStream stream;
    EXPECT_FALSE(stream.atEnd());
    EXPECT_FALSE(open(stream, 4, mSize + 5));
    EXPECT_FALSE(open(stream, mSize + 9, 0));
    EXPECT_FALSE(open(stream, ~std::uint64_t{0}, 0xFFFFFFFF));
    std::byte one{};
    EXPECT_EQ(stream.read({&one, 1}), 0U);
}

}  // namespace
