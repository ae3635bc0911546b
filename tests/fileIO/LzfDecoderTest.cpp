#include "fileIO/LzfDecoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

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

/// Through a window of history and room bytes, fed piece bytes at a time.
Decoded decodeThroughWindow(const Bytes& stream, std::size_t outLen, std::size_t room,
                            std::size_t piece) {
    Bytes bytes;
    std::size_t in = 0;
    std::size_t inLen = std::min(piece, stream.size());
    for (;;) {
        const std::size_t kept = std::min<std::size_t>(bytes.size(), 8192);
        const std::size_t end = kept + std::min(room, outLen - bytes.size());
        Bytes window(bytes.end() - static_cast<std::ptrdiff_t>(kept), bytes.end());
        window.resize(end);
        const Bytes held(stream.begin() + static_cast<std::ptrdiff_t>(in),
                         stream.begin() + static_cast<std::ptrdiff_t>(inLen));
        const zyr::LzfStep step =
            zyr::lzfDecodeStep(held.data(), held.size(), window.data(), kept, end);
        const bool isMore = inLen < stream.size();
        const std::size_t given = step.produced + (isMore ? 0 : step.partial);
        bytes.insert(bytes.end(), window.begin() + static_cast<std::ptrdiff_t>(kept),
                     window.begin() + static_cast<std::ptrdiff_t>(kept + given));
        in += step.consumed;
        const bool isFull = step.end == LzfEnd::Overrun && end - kept == room && step.produced > 0;
        const bool isFed = step.end == LzfEnd::Whole || step.end == LzfEnd::Cut;
        if (!isFull && !(isFed && isMore)) return {step.end, bytes};
        if (isFed) inLen = std::min(inLen + piece, stream.size());
    }
}

/// Any stream of an encoder, damaged here and there.
Bytes damaged(Bytes stream, std::mt19937& random) {
    for (unsigned k = random() % 4; k > 0; --k)
        stream[random() % stream.size()] = static_cast<unsigned char>(random());
    return test::prefix(stream, stream.size() - random() % 3 * (random() % stream.size()) / 2);
}

bool isSame(const Decoded& decoded, const test::PlainResult& plain) {
    const bool isError = decoded.end == LzfEnd::Overrun || decoded.end == LzfEnd::BadReference;
    if (isError != plain.isError) return false;
    return isError || ((decoded.end == LzfEnd::Cut) == plain.isCut && decoded.bytes == plain.bytes);
}

}  // namespace

TEST(LzfDecoder, GivesThroughAWindowWhatItGivesInOneGo) {
    for (const auto& [name, data] : test::madeData())
        for (std::size_t piece : {36U, 1000U, 65536U}) {
            const Decoded decoded =
                decodeThroughWindow(test::lzfCompressed(data), data.size(), 1000, piece);
            EXPECT_EQ(decoded.end, LzfEnd::Whole) << name;
            EXPECT_TRUE(decoded.bytes == data) << name << ", " << piece;
        }
}

TEST(LzfDecoder, DamagedStreamsGiveWhatTheFormatSaysInOneGo) {
    std::mt19937 random(31);
    for (const auto& [name, data] : test::madeData())
        for (int k = 0; k < 40; ++k) {
            const Bytes stream = damaged(test::lzfCompressed(data), random);
            if (stream.empty()) continue;
            Bytes out(data.size() + random() % 2 * 300);
            const zyr::LzfStep step =
                zyr::lzfDecodeStep(stream.data(), stream.size(), out.data(), 0, out.size());
            const Decoded decoded{step.end, test::prefix(out, step.produced + step.partial)};
            EXPECT_TRUE(isSame(decoded, test::plainDecode(stream, stream.size(), out.size())))
                << name << ", " << k;
        }
}

TEST(LzfDecoder, DamagedStreamsGiveWhatTheFormatSaysThroughAWindow) {
    std::mt19937 random(32);
    for (const auto& [name, data] : test::madeData())
        for (int k = 0; k < 10; ++k) {
            const Bytes stream = damaged(test::lzfCompressed(data), random);
            if (stream.empty()) continue;
            const std::size_t outLen = data.size() + random() % 2 * 300;
            EXPECT_TRUE(isSame(decodeThroughWindow(stream, outLen, 600, 700),
                               test::plainDecode(stream, stream.size(), outLen)))
                << name << ", " << k;
        }
}

TEST(LzfDecoder, CountsWholeChunksAndWhatACutRunHolds) {
    const Bytes stream = {0, 'a', 3, 'b', 'c'};
    Bytes out(10);
    const zyr::LzfStep step = zyr::lzfDecodeStep(stream.data(), 5, out.data(), 0, 10);
    EXPECT_EQ(step.end, LzfEnd::Cut);
    EXPECT_EQ(step.consumed, 2U);
    EXPECT_EQ(step.produced, 1U);
    EXPECT_EQ(step.partial, 2U);
    EXPECT_EQ(test::prefix(out, 3), (Bytes{'a', 'b', 'c'}));
}

TEST(LzfDecoder, ReadsNothingBehindAChunkThatIsCut) {
    // The longest chunks there are, in a buffer that ends with the cut.
    const Bytes whole = test::joined(test::literalStream(Bytes(32, 7)), {0xE0, 255, 3});
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        Bytes out(1000);
        const zyr::LzfStep step = zyr::lzfDecodeStep(cut.data(), cut.size(), out.data(), 0, 1000);
        const bool hasRun = size >= 33;
        EXPECT_EQ(step.end == LzfEnd::Cut, size != 0 && size != 33) << size;
        EXPECT_EQ(step.consumed, hasRun ? 33U : 0U) << size;
        EXPECT_EQ(step.produced, hasRun ? 32U : 0U) << size;
    }
}

TEST(LzfDecoder, OnlyACutRunGivesAPart) {
    const auto partOf = [](const Bytes& stream, std::size_t room) {
        Bytes out(room);
        return zyr::lzfDecodeStep(stream.data(), stream.size(), out.data(), 0, room).partial;
    };
    EXPECT_EQ(partOf({3, 1, 2}, 400), 2U);
    EXPECT_EQ(partOf({3, 1, 2, 3, 4}, 400), 0U) << "whole";
    EXPECT_EQ(partOf({3, 1, 2, 3, 4}, 2), 0U) << "beyond the end";
    EXPECT_EQ(partOf({0, 1, 0x20, 5}, 400), 0U) << "a reference before the start";
    EXPECT_EQ(partOf({0, 1, 0x20, 0}, 2), 0U) << "a reference beyond the end";
    EXPECT_EQ(partOf({0, 1, 0xE0, 9}, 400), 0U) << "a cut reference";
}

TEST(LzfDecoder, WritesNothingBehindABufferThatEndsInAChunk) {
    for (const int distance : {1, 3, 7, 8, 12, 16, 30}) {
        Bytes stream;
        std::vector<std::size_t> ends = {0};
        for (int i = 0; i < 4; ++i) {
            const auto before = static_cast<unsigned char>(distance - 1);
            stream = test::joined({stream, test::literalStream(Bytes(32, 7)), {0xE0, 255, before}});
            ends.insert(ends.end(), {ends.back() + 32, ends.back() + 32 + 264});
        }
        for (std::size_t room = 0; room <= ends.back(); ++room) {
            Bytes out(room);
            const zyr::LzfStep step =
                zyr::lzfDecodeStep(stream.data(), stream.size(), out.data(), 0, room);
            EXPECT_EQ(step.produced, *std::prev(std::upper_bound(ends.begin(), ends.end(), room)));
            EXPECT_EQ(step.end == LzfEnd::Whole, room == ends.back()) << room;
            EXPECT_EQ(Bytes(out.begin(), out.begin() + std::ptrdiff_t(step.produced)),
                      Bytes(step.produced, 7));
        }
    }
}

TEST(LzfDecoder, ReferencesReachIntoTheHistory) {
    const Bytes stream = {1 << 5, 3};
    Bytes out = {'a', 'b', 'c', 'd', 0, 0, 0};
    const zyr::LzfStep step = zyr::lzfDecodeStep(stream.data(), 2, out.data(), 4, 7);
    EXPECT_EQ(step.end, LzfEnd::Whole);
    EXPECT_EQ(step.produced, 3U);
    EXPECT_EQ(out, (Bytes{'a', 'b', 'c', 'd', 'a', 'b', 'c'}));
}
