#include <gtest/gtest.h>

#include "fileIO/LzfEncoder.h"
#include "support/LzfColumnData.h"
#include "support/LzfEncoders.h"
#include "support/PlainLzf.h"

/// How small blocks become, and by which encoder.

using test::Bytes;

namespace {

enum Encoder { kFloatBorn, kDoubles, kIntegers, kBytes, kShorts, kNoisyShorts, kCount };

struct Sizes {
    const char* name;
    std::size_t sizes[kCount];
};

Bytes encodedBy(Encoder encoder, const Bytes& block) {
    Bytes stream(zyr::lzfBlockRoom(block.size()));
    stream.resize(test::kEncoders[encoder].encode(block.data(), block.size(), stream.data()));
    return stream;
}

Bytes encoded(const Bytes& block, std::size_t width) {
    Bytes stream(zyr::lzfBlockRoom(block.size()));
    stream.resize(zyr::lzfEncodeBlock(block.data(), block.size(), width, stream.data()));
    return stream;
}

/// The start of each column, a block of the starts of all, and what lies far back, behind noise or
/// behind one value over and over.
std::vector<test::NamedBytes> knownBlocks() {
    std::vector<test::NamedBytes> blocks = test::columns();
    Bytes& mixed = blocks.back().second;
    mixed.clear();
    for (auto& [name, data] : blocks) {
        if (&data != &mixed) mixed = test::joined(mixed, test::prefix(data, 11000));
        data.resize(std::min(data.size(), zyr::kLzfBlock));
    }
    blocks.emplace_back("far back", test::repeated(test::noiseColumn(1024), zyr::kLzfBlock));
    blocks.emplace_back("behind noise",
                        test::joined(test::noiseColumn(12000), test::decimals(4000)));
    const Bytes noise = test::noiseColumn(600), one = test::prefix(noise, 8);
    Bytes flat = test::joined(noise, test::repeated(one, 8 * 1400));
    for (std::size_t i = 0; i < 400; ++i) {
        const Bytes value(&noise[8 * i + 800], &noise[8 * i + 800] + 8);
        flat = test::joined({flat, i % 5 == 0 ? one : value});
    }
    blocks.emplace_back("flat", flat);
    // Repetitions of some 256 bytes, each behind a value of which the highest byte returns.
    Bytes returning = noise;
    for (std::size_t count = 24; count < 40; ++count) {
        const std::size_t first = 8 * (10 * count);
        const Bytes fresh = test::noiseColumn(700 + count);
        returning.insert(returning.end(), fresh.end() - 24, fresh.end());
        returning.back() = noise[first - 1];
        returning[returning.size() - 2] = static_cast<unsigned char>(~noise[first - 2]);
        returning.insert(returning.end(), &noise[first], &noise[first + 8 * count]);
    }
    blocks.emplace_back("returning", returning);
    return blocks;
}

/// As many values, of which the first so many that a sample looks at are one of a kind.
template <class Make>
Bytes sampled(std::size_t count, std::size_t ofAKind, Make make) {
    const std::size_t step = count / 64 + 1;
    return test::column(
        count, [&](std::size_t i) { return make(i, i % step == 0 && i / step < ofAKind); });
}

std::size_t sampleOf(std::size_t count) {
    const std::size_t step = count / 64 + 1;
    return (count + step - 1) / step;
}

void expectEncodedBy(Encoder encoder, const Bytes& block, std::size_t width, Encoder other) {
    EXPECT_EQ(encoded(block, width), encodedBy(encoder, block)) << block.size();
    EXPECT_NE(encodedBy(encoder, block), encodedBy(other, block)) << "the block tells nothing";
}

/// Rows of which the bytes from first to last are noise.
Bytes rows(std::size_t size, std::size_t first, std::size_t last) {
    std::mt19937 random(48);
    Bytes bytes =
        test::column(size / 2, [](std::size_t i) { return std::uint16_t(i / 20 + i % 2); });
    for (std::size_t i = first; i < last; ++i) bytes[i] = static_cast<unsigned char>(random());
    return bytes;
}

/// Float-born values that share their upper bits, none of which returns within 2048 values, save
/// two at a time where the encoder does not look: so the block becomes small only if it looks for
/// pairs.
class PairColumn {
public:
    /// The encoder looks at the values from first to last, last excluded.
    PairColumn(std::size_t count, std::size_t first, std::size_t last) : values_(count) {
        for (std::size_t i = 0; i < count; ++i)
            values_[i] = 0x3FF1230000000000 | std::uint64_t(i * 787 % 2048) << 29;
        for (std::size_t i = 8; i + 2 < count; i += 4)
            if (i + 1 < first || i > last + 7) returnPair(i);
    }

    /// Makes value i and the next the same as those before.
    void returnPair(std::size_t i, std::size_t distance = 6) {
        values_[i] = values_[i - distance];
        values_[i + 1] = values_[i + 1 - distance];
    }
    void returnPairs(std::size_t count, std::size_t lastOne, std::size_t distance = 6) {
        for (std::size_t n = 0; n < count; ++n) returnPair(lastOne - 15 * n, distance);
    }
    std::uint64_t& operator[](std::size_t i) { return values_[i]; }

    bool isEncodedByPairs() const {
        const Bytes block = test::column(values_.size(), [&](std::size_t i) { return values_[i]; });
        return 2 * encodedBy(kFloatBorn, block).size() < 9 * values_.size();
    }

private:
    std::vector<std::uint64_t> values_;
};

/// Three parts of values of so many bytes, of which the last two are one value over and over. What
/// came before returns behind the first part and runs so many bytes into the second.
Bytes runningInto(std::size_t width, std::size_t into) {
    constexpr std::size_t kPart = 256;
    constexpr unsigned char kOne = 0x35;
    std::mt19937 random(9);
    Bytes bytes(width * 3 * kPart, kOne);
    const std::size_t last = width * (kPart - 1);
    const std::size_t earlier = last - 100 * width;
    for (std::size_t i = 0; i < last; ++i)
        if (i < earlier + width || i >= earlier + 2 * width + into)
            bytes[i] = static_cast<unsigned char>(random() | 0x40);  // never that of the one
    std::copy_n(&bytes[earlier], width, &bytes[last]);
    return bytes;
}

}  // namespace

// Whoever changes an encoder changes these numbers; smaller is better.
TEST(LzfSizes, OfKnownBlocksAreTheKnownOnes) {
    const Sizes expected[] = {
        {"floats", {96185, 94381, 94459, 96430, 104021, 96549}},
        {"holes", {83586, 86233, 89660, 83670, 87059, 83741}},
        {"steps", {100690, 57159, 68076, 60975, 63630, 60086}},
        {"grid", {36173, 48764, 79288, 37268, 54263, 37431}},
        {"indices", {132065, 107665, 84127, 93015, 84311, 77813}},
        {"words", {62768, 64967, 56876, 54778, 42238, 53759}},
        {"rows", {104551, 68754, 75325, 54877, 44626, 54325}},
        {"noisy rows", {131675, 131069, 124787, 112332, 133252, 108372}},
        {"half floats", {117386, 79592, 83789, 77223, 88798, 76337}},
        {"noise", {135168, 135168, 135168, 135168, 135168, 135168}},
        {"ordered", {26066, 25340, 97003, 44792, 42760, 44975}},
        {"all", {92591, 81995, 84875, 75225, 79795, 73680}},
        {"far back", {10863, 14083, 13137, 11164, 11140, 11036}},
        {"behind noise", {132000, 107968, 113583, 107062, 114783, 105390}},
        {"flat", {7874, 7891, 7891, 7876, 7863, 7873}},
        {"returning", {5278, 5262, 5277, 5307, 5293, 5308}},
    };
    std::size_t next = 0;
    for (const auto& [name, block] : knownBlocks()) {
        const Sizes& sizes = expected[next++];
        EXPECT_EQ(name, sizes.name);
        for (int i = 0; i < kCount; ++i)
            EXPECT_EQ(encodedBy(Encoder(i), block).size(), sizes.sizes[i])
                << name << ", " << test::kEncoders[i].name;
    }
}

TEST(LzfSizes, WordsAreIndicesWhenHalfOfASampleHaveNoHighestByte) {
    const auto word = [](std::size_t i, bool isIndex) {
        return std::uint32_t((isIndex ? 0x00020301 : 0x01020301) + i / 3);
    };
    for (const std::size_t count : {600, 630, 640}) {
        const std::size_t half = (sampleOf(count) + 1) / 2;
        expectEncodedBy(kIntegers, sampled(count, half, word), 4, kBytes);
        expectEncodedBy(kBytes, sampled(count, half - 1, word), 4, kIntegers);
    }
}

TEST(LzfSizes, DoublesAreFloatBornWhenSevenEighthsOfASampleAre) {
    for (const std::uint64_t fraction : {1U, 1U << 28}) {
        const auto value = [=](std::size_t i, bool isFloat) {
            const std::uint64_t bits = 0x3FF0000020000000 + (std::uint64_t(i / 3) << 30);
            return isFloat ? bits : bits | fraction;
        };
        for (const std::size_t count : {112, 630, 640}) {
            const std::size_t most = (7 * sampleOf(count) + 7) / 8;
            expectEncodedBy(kFloatBorn, sampled(count, most, value), 8, kDoubles);
            expectEncodedBy(kDoubles, sampled(count, most - 1, value), 8, kFloatBorn);
        }
    }
}

TEST(LzfSizes, FewerThan16BytesAreLiterals) {
    for (const std::size_t width : {1, 2, 4, 8}) {
        EXPECT_EQ(encoded(Bytes(15), width), test::literalStream(Bytes(15))) << width;
        EXPECT_LT(encoded(Bytes(16), width).size(), 16U) << width;
    }
}

TEST(LzfSizes, RowsAreNoisyWhenASampleInTheMiddleIs) {
    expectEncodedBy(kNoisyShorts, rows(32768, 16384, 16384 + 1024), 2, kShorts);
    expectEncodedBy(kShorts, rows(32768, 0, 2048), 2, kNoisyShorts);
    expectEncodedBy(kShorts, rows(32768, 16384 + 1024, 32768), 2, kNoisyShorts);
}

TEST(LzfSizes, RowsAreNoisyWhenTheirSampleTakesNineTenths) {
    const auto block = [](std::size_t noise) { return rows(32768, 16384, 16384 + noise); };
    const auto share = [&](std::size_t noise) {
        const Bytes whole = block(noise);
        const Bytes sample(whole.begin() + 16384, whole.begin() + 16384 + 1024);
        return double(encodedBy(kShorts, sample).size()) / 1024;
    };
    ASSERT_GT(share(780), 0.82);
    ASSERT_LT(share(780), 0.9);
    expectEncodedBy(kShorts, block(780), 2, kNoisyShorts);
    ASSERT_GT(share(920), 0.9);
    ASSERT_LT(share(920), 1.0);
    expectEncodedBy(kNoisyShorts, block(920), 2, kShorts);
}

TEST(LzfSizes, RowsOutsideTheSampleAreNoisyWhenTheyBecomeSmallerSo) {
    expectEncodedBy(kNoisyShorts, rows(32768, 0, 16384), 2, kShorts);
}

TEST(LzfSizes, NoisyRowsStayRowsWhereBytesTakeMore) {
    std::mt19937 random(2);
    Bytes block(20000);
    for (unsigned char& byte : block) byte = static_cast<unsigned char>(random());
    for (std::ptrdiff_t i = 4000; i + 40 < 20000; i += 40) {
        const auto distance = static_cast<std::ptrdiff_t>(2 * (1 + random() % 1900));
        std::copy_n(block.begin() + i - distance, 8, block.begin() + i);
    }
    EXPECT_LT(encodedBy(kShorts, block).size(), encodedBy(kNoisyShorts, block).size());
    expectEncodedBy(kShorts, block, 2, kNoisyShorts);
}

TEST(LzfSizes, FewRowsHaveNoSample) {
    expectEncodedBy(kShorts, rows(32766, 16382, 16382 + 1022), 2, kNoisyShorts);
}

TEST(LzfSizes, OtherValuesAreBytes) {
    expectEncodedBy(kBytes, rows(4000, 0, 1000), 1, kShorts);
}

TEST(LzfSizes, PairsAreLookedForWhenMoreThanASixteenthOfASampleReturn) {
    const auto isFound = [](std::size_t numPairs, std::size_t lastOne) {
        PairColumn column(4000, 2000, 3024);
        column.returnPairs(numPairs, lastOne);
        return column.isEncodedByPairs();
    };
    EXPECT_TRUE(isFound(65, 3023));
    EXPECT_FALSE(isFound(65, 3024)) << "the last lies behind the sample";
    EXPECT_FALSE(isFound(64, 3023));
}

TEST(LzfSizes, SampleOfPairsEndsBeforeTheLastValue) {
    const auto isFound = [](std::size_t numPairs, std::size_t lastOne) {
        PairColumn column(1000, 500, 999);
        column.returnPairs(numPairs, lastOne);
        column[993] = column[994] = column[999];
        return column.isEncodedByPairs();
    };
    EXPECT_TRUE(isFound(32, 998));
    EXPECT_FALSE(isFound(31, 988)) << "the last value and none behind it are no pair";
}

TEST(LzfSizes, SampleOfPairsBeginsBehindItsMiddle) {
    const auto isFound = [](std::size_t secondOfFirstPair) {
        PairColumn column(4000, 2000, 3024);
        column.returnPairs(64, 3023);
        column.returnPair(2008, 2009 - secondOfFirstPair);
        return column.isEncodedByPairs();
    };
    EXPECT_TRUE(isFound(2002));
    EXPECT_FALSE(isFound(2001));
}

TEST(LzfSizes, PairsOfOneValueAndThoseJustBeforeCountToo) {
    PairColumn equal(4000, 2000, 3024);
    for (std::size_t i = 2010; i < 3024; i += 15) equal[i + 1] = equal[i];
    equal.returnPairs(65, 2016 + 15 * 64);
    EXPECT_TRUE(equal.isEncodedByPairs());
    PairColumn near(4000, 2000, 3024);
    near.returnPairs(65, 3023, 2);
    EXPECT_TRUE(near.isEncodedByPairs());
}

TEST(LzfSizes, ValuesThatAreAllTheOneBeforeTakeLittleMoreThanTheirReferences) {
    const Bytes value = test::bytesOf<double>({1.2345678});
    const Bytes same = test::repeated(value, 80000);
    const Bytes noise = test::noiseColumn(1000);
    for (const Encoder encoder : {kFloatBorn, kDoubles, kIntegers}) {
        EXPECT_LT(encodedBy(encoder, test::repeated({7, 6, 5, 4}, 80000)).size(), 1000U);
        if (encoder == kIntegers) continue;
        EXPECT_LT(encodedBy(encoder, same).size(), 1000U);
        EXPECT_LT(encodedBy(encoder, test::joined(noise, same)).size(), 8300U + 1000U);
    }
}

TEST(LzfSizes, PartsOfOneValueAreReferencesButForOneByteOrTwo) {
    for (const Encoder encoder : {kFloatBorn, kDoubles, kIntegers}) {
        const std::size_t width = encoder == kIntegers ? 4 : 8;
        const std::size_t bytes = 256 * width;
        std::vector<std::size_t> sizes;
        for (std::size_t left = 0; left < 20; ++left) {
            const Bytes block = runningInto(width, bytes % 264 - left);
            const Bytes stream = encodedBy(encoder, block);
            EXPECT_EQ(test::plainDecode(stream, block.size()), block) << left;
            sizes.push_back(stream.size());
        }
        // Each byte left is one more behind the first of what differs. Two more are literals and
        // their control byte; three are a reference of two bytes.
        EXPECT_EQ(sizes[2] - sizes[1], 2U) << encoder;
        EXPECT_EQ(sizes[3], sizes[2]) << encoder;
        EXPECT_EQ(sizes[4] - sizes[3], 1U) << encoder;
    }
}

TEST(LzfSizes, LastValueIsLookedFor) {
    const Bytes noise = test::noiseColumn(200);
    Bytes again = noise;
    std::copy_n(&noise[8 * 120], 8, &again[8 * 199]);
    EXPECT_LT(encodedBy(kDoubles, again).size(), encodedBy(kDoubles, noise).size() - 4);
    std::copy_n(&noise[8 * 120], 8, &again[8 * 198]);
    EXPECT_LT(encodedBy(kIntegers, again).size(), encodedBy(kIntegers, noise).size() - 4);
}
