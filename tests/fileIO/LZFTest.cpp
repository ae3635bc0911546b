#include "LZF.h"

#include <gtest/gtest.h>

#include <limits>
#include <numeric>

#include "support/Lzf.h"
#include "support/LzfData.h"
#include "support/PlainLzf.h"

using test::Bytes;
using test::lzfCompressed;
using test::lzfDecompressed;

namespace {

int intSize(const Bytes& bytes) {
    return static_cast<int>(bytes.size());
}

/// Into a buffer of exactly outLen bytes.
int compressInto(Bytes in, int outLen) {
    Bytes out(static_cast<std::size_t>(outLen));
    return LZF::compress(in.data(), intSize(in), out.data(), outLen);
}

int decompressInto(Bytes stream, int outLen) {
    Bytes out(static_cast<std::size_t>(outLen));
    return LZF::decompress(stream.data(), intSize(stream), out.data(), outLen);
}

}  // namespace

TEST(LZF, ParametersAreThoseOfTheFastCompressor) {
    EXPECT_EQ(HLOG, 14);
    EXPECT_EQ(HSIZE, 16384);
    EXPECT_EQ(MAX_LIT, 32);
    EXPECT_EQ(MAX_OFF, 8192);
    EXPECT_EQ(MAX_REF, 264);
}

TEST(LZF, WorksThroughAnObjectToo) {
    LZF codec;
    unsigned char in[] = {7};
    unsigned char out[2];
    EXPECT_EQ(codec.compress(in, 1, out, 2), 2);
}

TEST(LZF, ThousandZerosAreOneLiteralAndFourReferences) {
    const Bytes expected = {0x00, 0x00, 0xE0, 0xFF, 0x00, 0xE0, 0xFF,
                            0x00, 0xE0, 0xFF, 0x00, 0xE0, 0xC6, 0x00};
    EXPECT_EQ(lzfCompressed(Bytes(1000)), expected);
}

TEST(LZF, RepeatsOverlapWhatTheyCopyFrom) {
    const Bytes expected = {0x02, 0x61, 0x62, 0x63, 0xE0, 0x00, 0x02, 0x00, 0x58};
    EXPECT_EQ(lzfCompressed(test::toBytes("abcabcabcabcX")), expected);
}

TEST(LZF, MatchesAreLookedForWhileFourBytesRemain) {
    EXPECT_EQ(lzfCompressed(test::toBytes("abcXabc")),
              (Bytes{0x06, 0x61, 0x62, 0x63, 0x58, 0x61, 0x62, 0x63}));
    EXPECT_EQ(lzfCompressed(test::toBytes("abcXabcY")),
              (Bytes{0x03, 0x61, 0x62, 0x63, 0x58, 0x20, 0x03, 0x00, 0x59}));
}

TEST(LZF, MatchesReachBack8192Bytes) {
    const Bytes stream = lzfCompressed(test::repeated(test::randomBytes(8192, 256, 4), 2 * 8192));
    std::size_t repeated = 0;
    for (const test::Chunk& chunk : test::chunksOf(stream))
        if (chunk.isReference && chunk.distance == 8192) repeated += chunk.length;
    EXPECT_GT(repeated, 8000U);
    EXPECT_LT(stream.size(), 9000U);
}

TEST(LZF, MatchesReachNoFurther) {
    const Bytes stream = lzfCompressed(test::repeated(test::randomBytes(8193, 256, 5), 2 * 8193));
    EXPECT_GT(stream.size(), 2U * 8193);
}

TEST(LZF, ThousandZerosComeBack) {
    EXPECT_EQ(lzfDecompressed(lzfCompressed(Bytes(1000)), 1000), Bytes(1000));
}

TEST(LZF, OneByteIsALiteralRun) {
    EXPECT_EQ(lzfCompressed({65}), (Bytes{0, 65}));
}

TEST(LZF, NothingCompressesToNothing) {
    unsigned char byte = 1;
    unsigned char out[4];
    EXPECT_EQ(LZF::compress(&byte, 0, out, 4), 0);
    EXPECT_EQ(LZF::compress(nullptr, 0, out, 4), 0);
}

TEST(LZF, EveryKindOfDataComesBack) {
    for (const auto& [name, data] : test::madeData())
        EXPECT_EQ(lzfDecompressed(lzfCompressed(data), data.size()), data) << name;
}

TEST(LZF, StreamsReadAsTheFormatIsWorded) {
    for (const auto& [name, data] : test::madeData())
        EXPECT_EQ(test::plainDecode(lzfCompressed(data), data.size()), data) << name;
}

TEST(LZF, CompressesAsItsTextWordsIt) {
    for (const auto& [name, data] : test::madeData())
        EXPECT_TRUE(lzfCompressed(data) == test::plainEncode(data)) << name;
}

TEST(LZF, CompressesMeasuredDataAsItsTextWordsIt) {
    const auto measured = test::measuredData();
    if (measured.empty()) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    for (const auto& [name, data] : measured)
        EXPECT_TRUE(lzfCompressed(data) == test::plainEncode(data)) << name;
}

TEST(LZF, WhatIsFarBackIsNotTakenForNear) {
    // Inside long matches nothing is remembered, so that the same bytes are met again later, with
    // their last remembered place many times 4096 bytes back.
    for (unsigned seed = 1; seed < 5; ++seed) {
        std::mt19937 random(seed);
        Bytes data = test::repeated(test::randomBytes(4096, 256, seed), 300000);
        for (std::size_t i = 0; i < data.size(); i += 1 + random() % 1000)
            data[i] = static_cast<unsigned char>(random());
        EXPECT_TRUE(lzfCompressed(data) == test::plainEncode(data)) << seed;
    }
}

TEST(LZF, ChunksKeepToTheParameters) {
    for (const auto& [name, data] : test::madeData())
        for (const test::Chunk& chunk : test::chunksOf(lzfCompressed(data))) {
            EXPECT_LE(chunk.length, static_cast<std::size_t>(chunk.isReference ? MAX_REF : MAX_LIT))
                << name;
            EXPECT_LE(chunk.distance, static_cast<std::size_t>(MAX_OFF)) << name;
        }
}

TEST(LZF, RepeatedDataShrinks) {
    EXPECT_LT(lzfCompressed(Bytes(20000, 0x47)).size(), 20000U / 50);
    EXPECT_LT(lzfCompressed(test::repeated({1, 2, 3}, 20000)).size(), 20000U / 50);
}

TEST(LZF, NoDataTakeMoreThanALiteralControlByteForEach32) {
    for (std::size_t size = 1; size < 200; ++size) {
        const Bytes data = test::randomBytes(size, 256, static_cast<unsigned>(size));
        EXPECT_EQ(lzfDecompressed(lzfCompressed(data), size), data);
        EXPECT_LE(lzfCompressed(data).size(), size + (size + 31) / 32);
    }
}

TEST(LZF, CompressFitsInExactlyItsResult) {
    for (const auto& [name, data] : test::madeData()) {
        const int size = intSize(lzfCompressed(data));
        for (int outLen = size; outLen < size + 5; ++outLen)
            EXPECT_EQ(compressInto(data, outLen), size) << name;
    }
}

TEST(LZF, CompressGivesZeroWhereTheResultDoesNotFit) {
    for (const auto& [name, data] : test::madeData()) {
        const int size = intSize(lzfCompressed(data));
        for (int outLen = std::max(0, size - 70); outLen < size; ++outLen)
            EXPECT_EQ(compressInto(data, outLen), 0) << name << ", " << outLen;
    }
}

TEST(LZF, AnyLiteralsBeforeAnyMatchTakeExactlyTheirRoom) {
    for (std::size_t literals = 1; literals < 36; ++literals)
        for (const std::size_t length : {3, 4, 7, 8, 9, 10, 19})
            for (std::size_t behind = 0; behind < 20; behind += 1 + behind / 2) {
                Bytes fresh(literals + behind);
                std::iota(fresh.begin(), fresh.end(), 1);
                const auto middle = fresh.begin() + static_cast<std::ptrdiff_t>(literals);
                const Bytes data = test::joined({Bytes(20), Bytes(fresh.begin(), middle),
                                                 Bytes(length), Bytes(middle, fresh.end())});
                const Bytes stream = test::plainEncode(data);
                EXPECT_EQ(lzfCompressed(data), stream) << literals << ", " << length;
                EXPECT_EQ(compressInto(data, intSize(stream)), intSize(stream)) << literals;
                for (int room = intSize(stream) - static_cast<int>(behind) - 5;
                     room < intSize(stream); ++room)
                    EXPECT_EQ(compressInto(data, room), 0) << literals << ", " << room;
            }
}

TEST(LZF, CompressGivesZeroForANegativeOutputLength) {
    unsigned char in[] = {1, 2, 3};
    unsigned char out[1] = {9};
    EXPECT_EQ(LZF::compress(in, 3, out, -1), 0);
    EXPECT_EQ(out[0], 9);
}

TEST(LZF, CompressGivesZeroForANegativeInputLength) {
    Bytes in(100), out(200, 9);
    EXPECT_EQ(LZF::compress(in.data(), -1, out.data(), 200), 0);
    EXPECT_EQ(out, Bytes(200, 9));
}

TEST(LZF, CompressDoesNotReadBehindTheInput) {
    for (std::size_t size = 1; size < 40; ++size)
        EXPECT_FALSE(lzfCompressed(Bytes(size, 3)).empty()) << size;
}

TEST(LZF, DecompressFitsInExactlyItsResult) {
    for (const auto& [name, data] : test::madeData())
        for (int outLen = intSize(data); outLen < intSize(data) + 5; ++outLen)
            EXPECT_EQ(decompressInto(lzfCompressed(data), outLen), intSize(data)) << name;
}

TEST(LZF, DecompressGivesZeroWhereTheOutputIsTooSmall) {
    for (const auto& [name, data] : test::madeData())
        for (int outLen = std::max(0, intSize(data) - 40); outLen < intSize(data); ++outLen)
            EXPECT_EQ(decompressInto(lzfCompressed(data), outLen), 0) << name << ", " << outLen;
}

TEST(LZF, DecompressGivesZeroForANegativeOutputLength) {
    unsigned char in[] = {1, 7, 8};
    unsigned char out[] = {9, 9};
    for (const int outLen : {-1, std::numeric_limits<int>::min()})
        EXPECT_EQ(LZF::decompress(in, 3, out, outLen), 0) << outLen;
    EXPECT_EQ(Bytes(out, out + 2), Bytes(2, 9));
}

TEST(LZF, DecompressReadsOneChunkForANegativeInputLength) {
    unsigned char in[] = {1, 7, 8, 0, 6};
    for (const int inLen : {-1, std::numeric_limits<int>::min()}) {
        unsigned char out[] = {9, 9, 9};
        EXPECT_EQ(LZF::decompress(in, inLen, out, 3), 2) << inLen;
        EXPECT_EQ(Bytes(out, out + 3), (Bytes{7, 8, 9})) << inLen;
    }
}

TEST(LZF, MeasuredDataComeBack) {
    const auto measured = test::measuredData();
    if (measured.empty()) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    for (const auto& [name, data] : measured)
        EXPECT_TRUE(test::plainDecode(lzfCompressed(data), data.size()) == data) << name;
}
