#include <gtest/gtest.h>

#include "LZF.h"
#include "support/LzfData.h"
#include "support/PlainLzf.h"

/// Decompression of streams that are made by hand, sound and unsound.

using test::Bytes;

namespace {

struct Decompressed {
    int result;
    Bytes out;
};

Decompressed decompress(Bytes in, int inLen, int outLen) {
    Decompressed decompressed{0, Bytes(static_cast<std::size_t>(outLen), 0xEE)};
    decompressed.result = LZF::decompress(in.data(), inLen, decompressed.out.data(), outLen);
    return decompressed;
}

Decompressed decompress(const Bytes& in, int outLen) {
    return decompress(in, static_cast<int>(in.size()), outLen);
}

/// A reference's chunk.
Bytes reference(std::size_t length, std::size_t distance) {
    const std::size_t code = std::min<std::size_t>(length - 2, 7);
    Bytes chunk = {static_cast<unsigned char>(code << 5 | (distance - 1) >> 8)};
    if (code == 7) chunk.push_back(static_cast<unsigned char>(length - 9));
    chunk.push_back(static_cast<unsigned char>((distance - 1) & 255));
    return chunk;
}

}  // namespace

TEST(LZFStream, ControlBytesBelow32AreLiteralRuns) {
    for (std::size_t c = 0; c < 32; ++c) {
        const Bytes run = test::randomBytes(c + 1, 256, 11);
        const int length = static_cast<int>(c + 1);
        const Decompressed d =
            decompress(test::joined({static_cast<unsigned char>(c)}, run), length);
        EXPECT_EQ(d.result, length);
        EXPECT_EQ(d.out, run);
    }
}

TEST(LZFStream, ShortReferenceCopiesItsTopThreeBitsPlusTwo) {
    const Bytes run = {2, 'a', 'b', 'c'};
    for (int code = 1; code < 7; ++code) {
        const Decompressed d =
            decompress(test::joined(run, {static_cast<unsigned char>(code << 5), 2}), 20);
        EXPECT_EQ(d.result, 3 + code + 2);
        EXPECT_EQ(test::prefix(d.out, 5), (Bytes{'a', 'b', 'c', 'a', 'b'}));
    }
}

TEST(LZFStream, LongReferenceAddsItsNextByte) {
    for (int next : {0, 1, 100, 254, 255}) {
        const Decompressed d =
            decompress({0, 'z', 7 << 5, static_cast<unsigned char>(next), 0}, 300);
        EXPECT_EQ(d.result, 1 + 9 + next);
        EXPECT_EQ(test::prefix(d.out, static_cast<std::size_t>(d.result)),
                  Bytes(static_cast<std::size_t>(10 + next), 'z'));
    }
}

TEST(LZFStream, DistanceHasItsHighBitsInTheControlByte) {
    const Bytes data = test::randomBytes(8192, 256, 12);
    const Bytes stream = test::literalStream(data);
    for (std::size_t distance : {1U, 256U, 257U, 4096U, 8192U}) {
        const auto high = static_cast<unsigned char>(1 << 5 | (distance - 1) >> 8);
        const auto low = static_cast<unsigned char>((distance - 1) & 255);
        const Decompressed d = decompress(test::joined(stream, {high, low}), 8195);
        EXPECT_EQ(d.result, 8195);
        EXPECT_EQ(d.out[8192], data[8192 - distance]) << distance;
    }
}

TEST(LZFStream, ReferenceMayOverlapWhatItWrites) {
    for (unsigned distance = 1; distance <= 20; ++distance) {
        const Bytes period = test::randomBytes(distance, 256, distance);
        const Bytes stream = test::joined(test::literalStream(period),
                                          {7 << 5, 255, static_cast<unsigned char>(distance - 1)});
        const int length = static_cast<int>(distance) + 264;
        const Decompressed d = decompress(stream, length);
        EXPECT_EQ(d.result, length);
        EXPECT_EQ(d.out, test::repeated(period, d.out.size()));
    }
}

TEST(LZFStream, ReferenceFarFromTheEndsMayOverlapToo) {
    // Where much follows, references are copied in wider moves.
    const Bytes before = test::literalStream(test::randomBytes(20, 256, 14));
    const Bytes behind = test::literalStream(test::randomBytes(400, 256, 13));
    for (std::size_t distance = 1; distance <= 20; ++distance)
        for (std::size_t length = 3; length <= 264; ++length) {
            const Bytes stream = test::joined({before, reference(length, distance), behind});
            const std::size_t size = 20 + length + 400;
            const Decompressed d = decompress(stream, static_cast<int>(size));
            EXPECT_EQ(d.result, static_cast<int>(size));
            EXPECT_TRUE(d.out == test::plainDecode(stream, size)) << distance << ", " << length;
        }
}

TEST(LZFStream, ReferenceBeforeTheStartGivesZero) {
    EXPECT_EQ(decompress({0, 'a', 1 << 5, 1}, 20).result, 0);
    EXPECT_EQ(decompress({1 << 5, 0}, 20).result, 0);
    EXPECT_EQ(decompress({2, 'a', 'b', 'c', 7 << 5 | 31, 9, 255}, 200).result, 0);
}

TEST(LZFStream, ReferenceToTheVeryStartIsFine) {
    EXPECT_EQ(decompress({2, 'a', 'b', 'c', 1 << 5, 2}, 6).out,
              (Bytes{'a', 'b', 'c', 'a', 'b', 'c'}));
}

TEST(LZFStream, LiteralRunBeyondTheOutputGivesZero) {
    EXPECT_EQ(decompress({2, 'a', 'b', 'c'}, 2).result, 0);
    EXPECT_EQ(decompress({2, 'a', 'b', 'c'}, 0).result, 0);
    EXPECT_EQ(decompress({0, 'a', 2, 'a', 'b', 'c'}, 3).result, 0);
}

TEST(LZFStream, ReferenceBeyondTheOutputGivesZero) {
    EXPECT_EQ(decompress({0, 'a', 1 << 5, 0}, 3).result, 0);
    EXPECT_EQ(decompress({0, 'a', 1 << 5, 0}, 4).result, 4);
    EXPECT_EQ(decompress({0, 'a', 7 << 5, 255, 0}, 264).result, 0);
    EXPECT_EQ(decompress({0, 'a', 7 << 5, 255, 0}, 265).result, 265);
}

TEST(LZFStream, OneChunkIsReadHoweverShortTheInput) {
    EXPECT_EQ(decompress({0, 'a', 0, 'b'}, 0, 4).result, 1);
    EXPECT_EQ(decompress({0, 'a', 0, 'b'}, -5, 4).result, 1);
    EXPECT_EQ(decompress({1 << 5, 0}, 0, 4).result, 0);
}

TEST(LZFStream, LastLiteralRunIsReadInFullBeyondTheInputLength) {
    const Bytes run = {4, 'a', 'b', 'c', 'd', 'e'};
    for (int inLen = 0; inLen <= 6; ++inLen) {
        const Decompressed d = decompress(run, inLen, 5);
        EXPECT_EQ(d.result, 5) << inLen;
        EXPECT_EQ(d.out, (Bytes{'a', 'b', 'c', 'd', 'e'})) << inLen;
    }
}

TEST(LZFStream, LastReferenceIsReadInFullBeyondTheInputLength) {
    const Bytes stream = {0, 'a', 7 << 5, 3, 0};
    for (int inLen : {3, 4, 5}) EXPECT_EQ(decompress(stream, inLen, 20).result, 13) << inLen;
    EXPECT_EQ(decompress(stream, 2, 20).result, 1);
}
