#include "fileIO/LzfEncoder.h"

#include <gtest/gtest.h>
#include <liblzf/lzf.h>

#include <cmath>
#include <random>

#include "fileIO/LzfColumns.h"
#include "fileIO/LzfGreedy.h"
#include "support/LzfData.h"
#include "support/PlainLzf.h"

using test::Bytes;

namespace {

constexpr std::size_t kWidths[] = {1, 2, 4, 8};

/// The encoders that a block's values choose from, each good for any bytes.
const struct {
    const char* name;
    std::size_t (*encode)(const zyr::Byte*, std::size_t, zyr::Byte*);
} kEncoders[] = {
    {"float-born", zyr::lzfEncodeFloatBorn}, {"doubles", zyr::lzfEncodeDoubles},
    {"integers", zyr::lzfEncodeIntegers},    {"bytes", zyr::lzfEncodeBytes},
    {"shorts", zyr::lzfEncodeShorts},        {"noisy shorts", zyr::lzfEncodeNoisyShorts},
};

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

template <class Make>
Bytes column(std::size_t count, Make make) {
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i) test::put(bytes, make(i));
    return bytes;
}

/// Doubles that fill all their bits.
Bytes noiseColumn(std::size_t count) {
    std::mt19937_64 random(45);
    std::uniform_real_distribution<double> uniform(-1, 1);
    return column(count, [&](std::size_t) { return uniform(random); });
}

/// Floats that come back in the order in which they were, but for a few.
Bytes orderedColumn(std::size_t count) {
    std::mt19937 random(46);
    std::uniform_real_distribution<float> uniform(0.5F, 1);
    std::vector<float> order(700);
    for (float& value : order) value = uniform(random);
    return column(count, [&](std::size_t i) {
        float& value = order[i % 700];
        if (random() % 6 == 0) value = uniform(random);
        return double(value);
    });
}

/// Columns as files hold them, and mixtures that make an encoder change its mind.
std::vector<test::NamedBytes> columns() {
    std::mt19937 random(41);
    std::normal_distribution<double> noise(0, 0.0003);
    const auto wave = [&](std::size_t i) { return std::sin(0.01 * double(i)) + noise(random); };
    const Bytes floats = column(20000, [&](std::size_t i) { return double(float(wave(i))); });
    const Bytes holes = column(20000, [&](std::size_t i) {
        return random() % 5 == 0 ? 3.4028234663852886e+38 : double(float(wave(i)));
    });
    const Bytes steps =
        column(20000, [&](std::size_t i) { return std::round(wave(i) * 1000) * 0.001; });
    const Bytes grid = column(20000, [&](std::size_t) { return 0.5F * double(random() % 300); });
    const Bytes indices = column(40000, [&](std::size_t i) { return int(i / 2 + random() % 50); });
    const Bytes words = column(40000, [&](std::size_t i) {
        return 0xFF000000U | std::uint32_t(random() % 4) << 16 | std::uint32_t(i / 64 % 256);
    });
    const Bytes rows = column(70000, [&](std::size_t i) {
        return std::uint16_t(random() % 50 == 0 ? 0 : 1000 + i % 640 / 7 + random() % 2);
    });
    const Bytes noisyRows = column(70000, [&](std::size_t i) {
        return std::uint16_t(1000 + 500 * std::sin(0.02 * double(i)) + 7000 * noise(random));
    });
    const Bytes halfFloats = column(20000, [&](std::size_t i) {
        return i % 2 == 0 ? double(float(wave(i))) : std::round(wave(i) * 1000) * 0.001;
    });
    return {{"floats", floats},
            {"holes", holes},
            {"steps", steps},
            {"grid", grid},
            {"indices", indices},
            {"words", words},
            {"rows", rows},
            {"noisy rows", noisyRows},
            {"half floats", halfFloats},
            {"noise", noiseColumn(20000)},
            {"ordered", orderedColumn(20000)},
            {"all", test::joined({floats, steps, Bytes(30000), indices, words, rows, grid})}};
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
    for (const auto& encoder : kEncoders) {
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
    data.emplace_back("colours", column(zyr::kLzfBlock / 4, [&](std::size_t i) {
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
    for (const auto& [name, data] : columns()) expectComesBack(name, data);
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
    std::vector<test::NamedBytes> all = columns();
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
    for (const auto& [name, data] : columns())
        for (int k = 0; k < 2; ++k, ++next)
            expectAllEncode(name, part(data, next % 8, sizes[next % std::size(sizes)]));
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
    for (const auto& [name, data] : columns())
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
    for (const auto& [name, data] : columns())
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
    for (const auto& [name, data] : columns())
        EXPECT_TRUE(blocks(data, 8) == blocks(data, 8)) << name;
}

TEST(LzfEncoder, NoColumnTakesAHundredthMoreThanWithLiblzf) {
    const std::vector<test::NamedBytes> all = columns();
    const std::size_t widths[] = {8, 8, 8, 8, 4, 4, 2};
    for (std::size_t i = 0; i < std::size(widths); ++i)
        EXPECT_LE(double(blocks(all[i].second, widths[i]).size()),
                  1.01 * double(sizeThere(all[i].second)))
            << all[i].first;
}

TEST(LzfEncoder, NoisyRowsTakeNoMoreThanWithLiblzf) {
    const Bytes rows = columns()[7].second;
    EXPECT_LE(blocks(rows, 2).size(), sizeThere(rows));
}

TEST(LzfEncoder, ValuesThatReturnInTheirOrderTakeLessThanWithLiblzf) {
    const Bytes values = orderedColumn(20000);
    EXPECT_LE(double(blocks(values, 8).size()), 0.97 * double(sizeThere(values)));
}

TEST(LzfEncoder, WhatFollowsNoiseIsFoundWithin16KiB) {
    const Bytes noise = noiseColumn(9000);
    const Bytes values = test::decimals(7000);
    EXPECT_LE(encoded(test::joined(noise, values), 8).size(),
              zyr::lzfWorstCase(noise.size() + (16 << 10)) + encoded(values, 8).size());
}

TEST(LzfEncoder, NoiseTakesAControlByteForEach32) {
    const Bytes noise = noiseColumn(16384);
    EXPECT_GE(encoded(noise, 8).size(), noise.size());
    EXPECT_LE(encoded(noise, 8).size(), zyr::lzfWorstCase(noise.size()));
}
