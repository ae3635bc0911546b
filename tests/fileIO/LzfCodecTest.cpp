#include "fileIO/LzfCodec.h"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include "support/Lzf.h"
#include "support/LzfData.h"
#include "support/PlainLzf.h"

using test::Bytes;
using zyr::LzfEnd;

namespace {

struct Decoded {
    LzfEnd end;
    Bytes bytes;
};

/// In buffers of exactly the sizes.
Decoded decode(const Bytes& stream, std::size_t size, std::size_t outLen) {
    const Bytes in = test::prefix(stream, size);
    Bytes out(outLen);
    const zyr::LzfResult result = zyr::lzfDecompress(in.data(), in.size(), out.data(), outLen);
    return {result.end, test::prefix(out, result.produced)};
}

Decoded decode(const Bytes& stream, std::size_t outLen) {
    return decode(stream, stream.size(), outLen);
}

/// Literal runs, short, long, near, far and overlapping references.
Bytes mixedStream() {
    Bytes data = test::decimals(60);
    for (const Bytes& part : {Bytes(700, 5), test::repeated({1, 2, 3, 4, 5}, 300),
                              test::randomBytes(100, 256, 21), test::decimals(60)})
        data = test::joined(data, part);
    return test::lzfCompressed(data);
}

constexpr std::size_t kMixedSize = 480 + 700 + 300 + 100 + 480;

}  // namespace

TEST(LzfCodec, WorstCaseIsAControlByteForEach32) {
    EXPECT_EQ(zyr::lzfWorstCase(0), 0U);
    EXPECT_EQ(zyr::lzfWorstCase(1), 2U);
    EXPECT_EQ(zyr::lzfWorstCase(32), 33U);
    EXPECT_EQ(zyr::lzfWorstCase(33), 35U);
    EXPECT_EQ(zyr::lzfWorstCase(std::size_t(1) << 33), (std::size_t(1) << 33) + (1 << 28));
}

TEST(LzfCodec, WholeStreamsDecodeWhole) {
    for (const auto& [name, data] : test::madeData()) {
        const Decoded decoded = decode(test::lzfCompressed(data), data.size());
        EXPECT_EQ(decoded.end, LzfEnd::Whole) << name;
        EXPECT_EQ(decoded.bytes, data) << name;
    }
}

TEST(LzfCodec, EmptyStreamIsWholeAndEmpty) {
    const Decoded decoded = decode({}, 10);
    EXPECT_EQ(decoded.end, LzfEnd::Whole);
    EXPECT_TRUE(decoded.bytes.empty());
    EXPECT_EQ(zyr::lzfDecompress(nullptr, 0, nullptr, 0).end, LzfEnd::Whole);
}

TEST(LzfCodec, EveryPrefixDecodesToAPrefixOfTheData) {
    const Bytes stream = mixedStream();
    for (std::size_t size = 0; size <= stream.size(); ++size) {
        const Decoded decoded = decode(stream, size, kMixedSize);
        const test::PlainResult plain =
            test::plainDecode(test::prefix(stream, size), size, kMixedSize);
        const bool isCut = size > 0 && plain.isCut;
        EXPECT_EQ(decoded.end, isCut ? LzfEnd::Cut : LzfEnd::Whole) << size;
        EXPECT_EQ(decoded.bytes, plain.bytes) << size;
    }
}

TEST(LzfCodec, EveryOutputSizeBelowTheDataIsAnOverrun) {
    const Bytes stream = mixedStream();
    for (std::size_t outLen = 0; outLen < kMixedSize; ++outLen)
        EXPECT_EQ(decode(stream, outLen).end, LzfEnd::Overrun) << outLen;
    EXPECT_EQ(decode(stream, kMixedSize).end, LzfEnd::Whole);
}

TEST(LzfCodec, CutLiteralRunGivesTheBytesThatAreThere) {
    const Decoded decoded = decode({4, 'a', 'b'}, 10);
    EXPECT_EQ(decoded.end, LzfEnd::Cut);
    EXPECT_EQ(decoded.bytes, (Bytes{'a', 'b'}));
}

TEST(LzfCodec, CutReferenceGivesNothing) {
    for (const Bytes& stream :
         {Bytes{0, 'a', 1 << 5}, Bytes{0, 'a', 7 << 5}, Bytes{0, 'a', 7 << 5, 3}}) {
        const Decoded decoded = decode(stream, 100);
        EXPECT_EQ(decoded.end, LzfEnd::Cut);
        EXPECT_EQ(decoded.bytes, (Bytes{'a'}));
    }
}

TEST(LzfCodec, ReferenceBeforeTheStartIsBad) {
    EXPECT_EQ(decode({1 << 5, 0}, 10).end, LzfEnd::BadReference);
    EXPECT_EQ(decode({0, 'a', 1 << 5, 1}, 10).end, LzfEnd::BadReference);
    EXPECT_EQ(decode({0, 'a', 1 << 5, 0}, 10).end, LzfEnd::Whole);
}

TEST(LzfCodec, TrustedFormReadsOneChunkAtLeast) {
    const Bytes stream = {1, 'a', 'b', 0, 'c'};
    Bytes out(3);
    const auto result = zyr::lzfDecompressTrusted(stream.data(), 0, out.data(), out.size());
    EXPECT_EQ(result.end, LzfEnd::Whole);
    EXPECT_EQ(result.produced, 2U);
}

TEST(LzfCodec, TrustedFormReadsTheLastReferenceAndNoByteMore) {
    for (const Bytes& reference : {Bytes{1 << 5, 0}, Bytes{6 << 5, 0}, Bytes{7 << 5, 1, 0}}) {
        const Bytes stream = test::joined({0, 'a'}, reference);
        const std::size_t length = reference[0] / 32 + (reference.size() == 3 ? 3 : 2);
        Bytes out(1 + length);
        const auto result = zyr::lzfDecompressTrusted(stream.data(), 3, out.data(), out.size());
        EXPECT_EQ(result.end, LzfEnd::Whole);
        EXPECT_EQ(result.produced, out.size());
    }
}

TEST(LzfCodec, InputsOfMoreThan4GiBCompress) {
#ifndef NDEBUG
    GTEST_SKIP() << "takes minutes where the codec is not optimised";
#endif
    constexpr std::size_t kSize = (std::size_t(1) << 32) + 1000;
    // Zero pages that are only read take no memory.
    void* zeros =
        mmap(nullptr, kSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (zeros == MAP_FAILED) GTEST_SKIP() << "no address space";
    Bytes stream(kSize / 80);
    stream.resize(zyr::lzfCompress(static_cast<const zyr::Byte*>(zeros), kSize, stream.data(),
                                   stream.size()));
    munmap(zeros, kSize);
    std::size_t size = 0;
    for (const test::Chunk& chunk : test::chunksOf(stream)) size += chunk.length;
    EXPECT_EQ(size, kSize);
}
