#include "fileIO/File.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "fileIO/ByteCursor.h"
#include "support/LzfData.h"
#include "support/MemoryFile.h"

using test::Bytes;

namespace {

zyr::File opened(const test::MemoryFile& file) {
    return zyr::openFile(file.path().c_str(), "rb");
}

}  // namespace

TEST(File, NullPathOpensNothing) {
    EXPECT_EQ(zyr::openFile(nullptr, "rb"), nullptr);
}

TEST(File, ReadUpToGivesWhatIsAskedFor) {
    const test::MemoryFile memory({1, 2, 3, 4});
    const zyr::File file = opened(memory);
    EXPECT_EQ(zyr::readUpTo(file.get(), 0), Bytes());
    EXPECT_EQ(zyr::readUpTo(file.get(), 3), (Bytes{1, 2, 3}));
    EXPECT_EQ(zyr::readUpTo(file.get(), 1), (Bytes{4}));
}

TEST(File, ReadUpToGivesLessWhereTheFileEnds) {
    const test::MemoryFile memory({1, 2, 3, 4});
    const zyr::File file = opened(memory);
    EXPECT_EQ(zyr::readUpTo(file.get(), 0xFFFFFFFFFFFF), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(zyr::readUpTo(file.get(), 10), Bytes());
}

TEST(File, ReadUpToTakesLargeFilesInSteps) {
    const Bytes bytes = test::randomBytes(5000001, 256, 31);
    const test::MemoryFile memory(bytes);
    EXPECT_EQ(zyr::readUpTo(opened(memory).get(), 5000001), bytes);
    EXPECT_EQ(zyr::readUpTo(opened(memory).get(), 0xFFFFFFFFFF), bytes);
    EXPECT_EQ(zyr::readUpTo(opened(memory).get(), 3000000), test::prefix(bytes, 3000000));
}

TEST(File, RemainingBytesLeaveThePositionAlone) {
    const test::MemoryFile memory({1, 2, 3, 4});
    const zyr::File file = opened(memory);
    EXPECT_EQ(zyr::remainingBytes(file.get()), 4U);
    EXPECT_EQ(std::getc(file.get()), 1);
    EXPECT_EQ(zyr::remainingBytes(file.get()), 3U);
    EXPECT_EQ(std::getc(file.get()), 2);
}

TEST(File, NothingRemainsOfAPipe) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const zyr::File out(fdopen(ends[1], "wb"));
    const zyr::File in(fdopen(ends[0], "rb"));
    EXPECT_EQ(zyr::remainingBytes(in.get()), 0U);
}

TEST(File, SixtyFourMebibytesNeedNoBacking) {
    EXPECT_TRUE(zyr::isBacked(67108864, 1000, 0));
    EXPECT_FALSE(zyr::isBacked(67108865, 1000, 999));
    EXPECT_TRUE(zyr::isBacked(67108865, 1000, 1000));
}

TEST(ByteCursor, TakesOneValueAfterTheOther) {
    const Bytes bytes = {1, 0, 0, 0, 2};
    zyr::ByteCursor cursor(bytes.data(), bytes.size());
    std::uint32_t word = 0;
    unsigned char byte = 0;
    EXPECT_TRUE(cursor.take(word));
    EXPECT_TRUE(cursor.take(byte));
    EXPECT_EQ(word, 1U);
    EXPECT_EQ(byte, 2);
}

TEST(ByteCursor, RefusesToPassItsEnd) {
    const Bytes bytes = {1, 2, 3};
    zyr::ByteCursor cursor(bytes.data(), bytes.size());
    std::uint32_t word = 77;
    EXPECT_FALSE(cursor.take(word));
    EXPECT_EQ(word, 77U);
    std::uint16_t half = 0;
    EXPECT_TRUE(cursor.take(half));
    EXPECT_FALSE(cursor.take(half));
}
