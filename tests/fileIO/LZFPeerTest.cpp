#include <gtest/gtest.h>
#include <liblzf/lzf.h>

#include "support/Lzf.h"
#include "support/LzfData.h"

/// Streams cross over to liblzf and back.

using test::Bytes;
using test::lzfCompressed;
using test::lzfDecompressed;

namespace {

Bytes compressedThere(const Bytes& data) {
    Bytes out(data.size() + data.size() / 16 + 64);
    out.resize(lzf_compress(data.data(), static_cast<unsigned>(data.size()), out.data(),
                            static_cast<unsigned>(out.size())));
    return out;
}

Bytes decompressedThere(const Bytes& stream, std::size_t size) {
    Bytes out(size);
    out.resize(lzf_decompress(stream.data(), static_cast<unsigned>(stream.size()), out.data(),
                              static_cast<unsigned>(size)));
    return out;
}

}  // namespace

TEST(LZFPeer, ReadsOurStreams) {
    for (const auto& [name, data] : test::madeData())
        EXPECT_EQ(decompressedThere(lzfCompressed(data), data.size()), data) << name;
}

TEST(LZFPeer, WritesStreamsThatWeRead) {
    for (const auto& [name, data] : test::madeData())
        EXPECT_EQ(lzfDecompressed(compressedThere(data), data.size()), data) << name;
}

TEST(LZFPeer, ReadsOurStreamsOfMeasuredData) {
    const auto measured = test::measuredData();
    if (measured.empty()) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    for (const auto& [name, data] : measured)
        EXPECT_TRUE(decompressedThere(lzfCompressed(data), data.size()) == data) << name;
}

TEST(LZFPeer, WritesStreamsOfMeasuredDataThatWeRead) {
    const auto measured = test::measuredData();
    if (measured.empty()) GTEST_SKIP() << "no data in " ZYR_DATA_DIR;
    for (const auto& [name, data] : measured)
        EXPECT_TRUE(lzfDecompressed(compressedThere(data), data.size()) == data) << name;
}

TEST(LZFPeer, RefusesWhatWeRefuse) {
    for (const Bytes& stream : {Bytes{0, 'a', 1 << 5, 1}, Bytes{1 << 5, 0},
                                Bytes{2, 'a', 'b', 'c', 7 << 5 | 31, 9, 255}}) {
        EXPECT_EQ(lzfDecompressed(stream, 200), Bytes());
        EXPECT_EQ(decompressedThere(stream, 200), Bytes());
    }
}
