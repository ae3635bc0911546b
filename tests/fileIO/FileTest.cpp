#include "fileIO/File.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/MemoryFile.h"

namespace {

zyr::File opened(const test::MemoryFile& file) {
    return zyr::openFile(file.path().c_str(), "rb");
}

}  // namespace

TEST(File, NullPathOpensNothing) {
    EXPECT_EQ(zyr::openFile(nullptr, "rb"), nullptr);
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

TEST(File, SixtyFourMebibytesAreAlwaysAllowed) {
    EXPECT_TRUE(zyr::isAlwaysAllowed(67108864));
    EXPECT_FALSE(zyr::isAlwaysAllowed(67108865));
}

TEST(File, SixtyFourMebibytesNeedNoBacking) {
    EXPECT_TRUE(zyr::isBacked(67108864, 1000, 0));
    EXPECT_FALSE(zyr::isBacked(67108865, 1000, 999));
    EXPECT_TRUE(zyr::isBacked(67108865, 1000, 1000));
}
