#include "fileIO/File.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/MemoryFile.h"

namespace {

zyr::File opened(const test::MemoryFile& file) {
    return zyr::openFile(file.path().c_str(), "rb");
}

/// A stream of 100 bytes, all but the seek from the origin, which fails.
struct Stubborn {
    int origin;
    off64_t place = 0;

    static int seek(void* cookie, off64_t* position, int origin) {
        auto* self = static_cast<Stubborn*>(cookie);
        if (origin == self->origin) return -1;
        if (origin != SEEK_CUR) self->place = origin == SEEK_END ? 100 : *position;
        *position = self->place;
        return 0;
    }
    std::uint64_t remaining() {
        const zyr::File file(fopencookie(this, "rb", {nullptr, nullptr, seek, nullptr}));
        return zyr::remainingBytes(file.get());
    }
};

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

TEST(File, NothingRemainsBehindTheEnd) {
    const test::MemoryFile memory({1, 2, 3, 4});
    const zyr::File file = opened(memory);
    ASSERT_EQ(std::fseek(file.get(), 10, SEEK_SET), 0);
    EXPECT_EQ(zyr::remainingBytes(file.get()), 0U);
    EXPECT_EQ(std::ftell(file.get()), 10);
}

TEST(File, NothingRemainsOfWhatCannotBeSoughtInToItsEndOrBack) {
    constexpr int kNone = -1;
    EXPECT_EQ(Stubborn{kNone}.remaining(), 100U);
    EXPECT_EQ(Stubborn{SEEK_END}.remaining(), 0U);
    EXPECT_EQ(Stubborn{SEEK_SET}.remaining(), 0U);
    EXPECT_EQ(Stubborn{SEEK_CUR}.remaining(), 0U);
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
