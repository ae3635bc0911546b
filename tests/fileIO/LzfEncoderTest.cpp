#include "fileIO/LzfEncoder.h"

#include <gtest/gtest.h>
#include <liblzf/lzf.h>

#include "support/LzfColumnData.h"
#include "support/LzfData.h"
#include "support/LzfEncoders.h"
#include "support/PlainLzf.h"

using test::Bytes;

namespace {

constexpr std::size_t kWidths[] = {1, 2, 4, 8};

/// From and into buffers of exactly the sizes that are asked for.
Bytes encoded(const Bytes& block, std::size_t width) {
    const Bytes in = test::prefix(block, block.size());
    Bytes out(zyr::lzfBlockRoom(in.size()));
    return test::prefix(out, zyr::lzfEncodeBlock(in.data(), in.size(), width, out.data()));
}

Bytes blocks(const Bytes& data, std::size_t width) {
    Bytes stream;
    for (std::size_t i = 0; i < data.size(); i += zyr::kLzfBlock) {
        const std::size_t end = std::min(data.size(), i + zyr::kLzfBlock);
        const Bytes chunks = encoded(Bytes(data.begin() + static_cast<std::ptrdiff_t>(i),
                                           data.begin() + static_cast<std::ptrdiff_t>(end)),
                                     width);
        stream.insert(stream.end(), chunks.begin(), chunks.end());
    }
    return stream;
}

Bytes decodedThere(const Bytes& stream, std::size_t size) {
    Bytes out(size);
    out.resize(lzf_decompress(stream.data(), static_cast<unsigned>(stream.size()), out.data(),
                              static_cast<unsigned>(size)));
    return out;
}

std::size_t sizeThere(const Bytes& data) {
    Bytes out(data.size() * 2);
    return lzf_compress(data.data(), static_cast<unsigned>(data.size()), out.data(),
                        static_cast<unsigned>(out.size()));
}

void expectComesBack(const std::string& name, const Bytes& data) {
    for (const std::size_t width : kWidths) {
        const Bytes stream = blocks(data, width);
        EXPECT_TRUE(test::plainDecode(stream, data.size()) == data) << name << ", " << width;
        EXPECT_TRUE(decodedThere(stream, data.size()) == data) << name << ", " << width;
    }
}

/// Through every encoder, whatever the values are; 16 bytes or more.
void expectAllEncode(const std::string& name, const Bytes& block) {
    for (const auto& encoder : test::kEncoders) {
        Bytes stream(zyr::lzfBlockRoom(block.size()));
        stream.resize(encoder.encode(block.data(), block.size(), stream.data()));
        EXPECT_LE(stream.size(), zyr::lzfWorstCase(block.size())) << name << ", " << encoder.name;
        EXPECT_TRUE(test::plainDecode(stream, block.size()) == block)
            << name << ", " << encoder.name << ", " << block.size();
    }
}

Bytes part(const Bytes& data, std::size_t first, std::size_t size) {
    const auto from = data.begin() + static_cast<std::ptrdiff_t>(first);
    return Bytes(from, from + static_cast<std::ptrdiff_t>(size));
}

template <class T>
void addMeasured(std::vector<test::NamedBytes>& data, const char* name, const char* type) {
    const auto values = test::readNpy<T>(std::string(ZYR_DATA_DIR "/") + name, type);
    constexpr std::ptrdiff_t kCount = zyr::kLzfBlock / sizeof(T);
    if (values.end() - values.begin() >= kCount)
        data.emplace_back(name, test::bytesOf(std::vector<T>(values.end() - kCount, values.end())));
}

/// A block each of indices, colours as words and rows of a range image; none without the folder.
std::vector<test::NamedBytes> measuredBlocks() {
    std::vector<test::NamedBytes> data;
    addMeasured<int>(data, "mesh_frag115/faces.npy", "<i4");
    addMeasured<std::uint16_t>(data, "range_rgbd/grid.npy", "<u2");
    const auto bgr = test::readNpy<unsigned char>(ZYR_DATA_DIR "/cloud_milk/bgr.npy", "|u1");
    if (bgr.size() < zyr::kLzfBlock) return data;
    data.emplace_back("colours", test::column(zyr::kLzfBlock / 4, [&](std::size_t i) {
                          return 0xFF000000U | std::uint32_t(bgr[3 * i + 2]) << 16 |
                                 std::uint32_t(bgr[3 * i + 1]) << 8 | bgr[3 * i];
                      }));
    return data;
}

}  // namespace

TEST(LzfEncoder, BlocksOfAnyDataAreAStreamOfIt) {
    for (const auto& [name, data] : test::madeData()) expectComesBack(name, data);
}

TEST(LzfEncoder, BlocksOfColumnsAreAStreamOfThem) {
    for (const auto& [name, data] : test::columns()) expectComesBack(name, data);
}

TEST(LzfEncoder, BlocksOfMeasuredDataAreAStreamOfThem) {
    const auto measured = test::measuredData();
    if (measured.empty()) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    for (const auto& [name, data] : measured) {
        const Bytes stream = blocks(data, 8);
        EXPECT_TRUE(test::plainDecode(stream, data.size()) == data) << name;
        EXPECT_LE(double(stream.size()), 1.03 * double(sizeThere(data))) << name;
    }
}

TEST(LzfEncoder, BlocksOfAnySizeComeBack) {
    for (const Bytes& data : {Bytes(600, 3), test::decimals(75), test::randomBytes(600, 256, 43)})
        for (std::size_t size = 0; size <= data.size(); ++size)
            for (const std::size_t width : kWidths) {
                const Bytes block = test::prefix(data, size);
                EXPECT_EQ(test::plainDecode(encoded(block, width), size), block) << size;
            }
}

TEST(LzfEncoder, EveryEncoderTakesSmallBlocksOfAnyValues) {
    std::vector<test::NamedBytes> all = test::columns();
    for (const int values : {1, 2, 3, 256})
        all.emplace_back(std::to_string(values) + " values", test::randomBytes(200, values, 47));
    for (const auto& [name, data] : all)
        for (std::size_t size = 16; size < 90; ++size)
            expectAllEncode(name, part(data, size, size));
}

TEST(LzfEncoder, EveryEncoderTakesLargeBlocksOfAnyValues) {
    constexpr std::size_t kFull = zyr::kLzfBlock;
    const std::size_t sizes[] = {49151, 49152,      49155,     65535,     65536, 65537,
                                 98304, kFull - 16, kFull - 7, kFull - 1, kFull};
    std::size_t next = 0;
    for (const auto& [name, data] : test::columns())
        for (int k = 0; k < 2; ++k, ++next)
            expectAllEncode(name, part(data, next % 8, sizes[next % std::size(sizes)]));
}

// Noise makes the encoders look at ever fewer places: what returns is found late, with more of it
// before.
TEST(LzfEncoder, LongRepeatsInNoiseComeBack) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        Bytes block = test::randomBytes(4000, 256, seed);
        for (const std::size_t size : {600U, 300U, 270U, 1200U})
            block = test::joined(block, part(block, block.size() - 3000, size));
        expectAllEncode("seed " + std::to_string(seed), block);
    }
}

TEST(LzfEncoder, EveryEncoderTakesMeasuredBlocks) {
    const auto measured = measuredBlocks();
    if (measured.empty()) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    for (const auto& [name, block] : measured) {
        expectAllEncode(name, block);
        expectAllEncode(name, part(block, 2, 20001));
    }
}

TEST(LzfEncoder, ShiftedColumnsComeBack) {
    for (const auto& [name, data] : test::columns())
        for (std::ptrdiff_t shift = 1; shift < 8; ++shift)
            for (const std::size_t width : kWidths) {
                const Bytes block(data.begin() + shift, data.begin() + 3000);
                EXPECT_EQ(test::plainDecode(encoded(block, width), block.size()), block) << name;
            }
}

TEST(LzfEncoder, NothingBecomesNothing) {
    for (const std::size_t width : kWidths) EXPECT_TRUE(encoded({}, width).empty());
}

TEST(LzfEncoder, NoDataTakeMoreThanALiteralControlByteForEach32) {
    for (const auto& [name, data] : test::columns())
        for (const std::size_t width : kWidths)
            EXPECT_LE(encoded(test::prefix(data, zyr::kLzfBlock), width).size(),
                      zyr::lzfWorstCase(std::min(data.size(), zyr::kLzfBlock)))
                << name;
    for (std::size_t size = 1; size < 200; ++size)
        for (const std::size_t width : kWidths)
            EXPECT_LE(encoded(test::randomBytes(size, 3, 44), width).size(),
                      zyr::lzfWorstCase(size));
}

TEST(LzfEncoder, TheSameBlockAlwaysGivesTheSameChunks) {
    for (const auto& [name, data] : test::columns())
        EXPECT_TRUE(blocks(data, 8) == blocks(data, 8)) << name;
}

TEST(LzfEncoder, NoColumnTakesAHundredthMoreThanWithLiblzf) {
    const std::vector<test::NamedBytes> all = test::columns();
    const std::size_t widths[] = {8, 8, 8, 8, 4, 4, 2};
    for (std::size_t i = 0; i < std::size(widths); ++i)
        EXPECT_LE(double(blocks(all[i].second, widths[i]).size()),
                  1.01 * double(sizeThere(all[i].second)))
            << all[i].first;
}

TEST(LzfEncoder, NoisyRowsTakeNoMoreThanWithLiblzf) {
    const Bytes rows = test::columns()[7].second;
    EXPECT_LE(blocks(rows, 2).size(), sizeThere(rows));
}

TEST(LzfEncoder, ValuesThatReturnInTheirOrderTakeLessThanWithLiblzf) {
    const Bytes values = test::orderedColumn(20000);
    EXPECT_LE(double(blocks(values, 8).size()), 0.97 * double(sizeThere(values)));
}

TEST(LzfEncoder, WhatFollowsNoiseIsFoundWithin16KiB) {
    const Bytes noise = test::noiseColumn(9000);
    const Bytes values = test::decimals(7000);
    EXPECT_LE(encoded(test::joined(noise, values), 8).size(),
              zyr::lzfWorstCase(noise.size() + (16 << 10)) + encoded(values, 8).size());
}

TEST(LzfEncoder, NoiseTakesAControlByteForEach32) {
    const Bytes noise = test::noiseColumn(16384);
    EXPECT_GE(encoded(noise, 8).size(), noise.size());
    EXPECT_LE(encoded(noise, 8).size(), zyr::lzfWorstCase(noise.size()));
}
