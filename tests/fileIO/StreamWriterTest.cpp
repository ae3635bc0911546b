#include "fileIO/StreamWriter.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "fileIO/File.h"
#include "fileIO/LzfEncoder.h"
#include "support/LzfData.h"
#include "support/PlainLzf.h"
#include "support/TempFolder.h"

using test::Bytes;

namespace {

constexpr std::uint64_t kNoLimit = 0xFFFFFFFF;

/// Bytes of a body of some blocks.
constexpr std::size_t kSeveral = 2 * zyr::kLzfBlock + 40000;

/// The bytes as blocks of single bytes.
zyr::BlockSource sourceOf(const Bytes& body) {
    return [&body, done = std::size_t(0)](unsigned char* target, std::size_t room) mutable {
        const std::size_t count = std::min(room, body.size() - done);
        std::copy_n(body.begin() + static_cast<std::ptrdiff_t>(done), count, target);
        done += count;
        return zyr::BlockValues{count, 1};
    };
}

/// A size word and the stream, into an open file.
bool writeInto(std::FILE* file, const Bytes& body) {
    zyr::StreamWriter writer(sourceOf(body), body.size(), kNoLimit);
    writer.prepareFor(file);
    const std::uint32_t word = writer.sizeWord();
    return zyr::writeAll(file, &word, sizeof word) && writer.write(file, 0);
}

Bytes written(const Bytes& body) {
    const test::TempFolder folder;
    zyr::File file = zyr::openFile(folder.path("stream").c_str(), "wb");
    EXPECT_TRUE(writeInto(file.get(), body));
    EXPECT_TRUE(zyr::closeFile(file));
    return test::readFile(folder.path("stream"));
}

std::vector<test::NamedBytes> bodies() {
    std::vector<test::NamedBytes> bodies = test::madeData();
    bodies.emplace_back("empty", Bytes());
    for (const std::size_t size :
         {zyr::kLzfBlock - 1, zyr::kLzfBlock, zyr::kLzfBlock + 1, 2 * zyr::kLzfBlock, kSeveral})
        bodies.emplace_back("random, " + std::to_string(size), test::randomBytes(size, 16, 1));
    return bodies;
}

}  // namespace

TEST(StreamWriter, WritesOneStreamBehindItsSize) {
    for (const auto& [name, body] : bodies()) {
        const Bytes bytes = written(body);
        ASSERT_GE(bytes.size(), 4U);
        EXPECT_EQ(test::valueAt<std::uint32_t>(bytes, 0), bytes.size() - 4) << name;
        const Bytes stream(bytes.begin() + 4, bytes.end());
        const Bytes decoded = body.empty() ? stream : test::plainDecode(stream, body.size());
        EXPECT_TRUE(decoded == body) << name;
    }
}

TEST(StreamWriter, NoiseTakesAControlByteForEach32AndOneForEachBlock) {
    for (const std::size_t size : {zyr::kLzfBlock, zyr::kLzfBlock + 1, kSeveral + 7}) {
        const std::size_t blocks = (size + zyr::kLzfBlock - 1) / zyr::kLzfBlock;
        EXPECT_LE(written(test::randomBytes(size, 256, 6)).size() - 4,
                  size + (size + 31) / 32 + blocks)
            << size;
    }
}

TEST(StreamWriter, WritesTheSameIntoAPipe) {
    const Bytes body = test::randomBytes(kSeveral, 16, 2);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    std::thread writer([&] {
        const zyr::File out(fdopen(ends[1], "wb"));
        EXPECT_TRUE(writeInto(out.get(), body));
    });
    const zyr::File in(fdopen(ends[0], "rb"));
    Bytes piped;
    for (int c = std::getc(in.get()); c != EOF; c = std::getc(in.get()))
        piped.push_back(static_cast<unsigned char>(c));
    writer.join();
    EXPECT_TRUE(piped == written(body));
}

TEST(StreamWriter, LeavesTheFileAtItsEnd) {
    const test::TempFolder folder;
    const zyr::File file = zyr::openFile(folder.path("stream").c_str(), "wb");
    ASSERT_TRUE(writeInto(file.get(), test::randomBytes(kSeveral, 256, 3)));
    EXPECT_EQ(std::ftell(file.get()),
              static_cast<long>(test::readFile(folder.path("stream")).size()));
}

TEST(StreamWriter, StreamFitsUpToTheLimit) {
    for (const std::size_t size : {std::size_t(1000), kSeveral}) {
        const Bytes body = test::randomBytes(size, 16, 4);
        const std::uint64_t streamSize = written(body).size() - 4;
        EXPECT_TRUE(zyr::StreamWriter(sourceOf(body), size, streamSize).fits()) << size;
        EXPECT_FALSE(zyr::StreamWriter(sourceOf(body), size, streamSize - 1).fits()) << size;
    }
}

TEST(StreamWriter, CountsOneBlockAndWhatMightExceedTheLimitBefore) {
    const auto isCounted = [](std::size_t size, std::uint64_t most) {
        const Bytes body(size);
        return zyr::StreamWriter(sourceOf(body), size, most).isCounted();
    };
    EXPECT_TRUE(isCounted(zyr::kLzfBlock, kNoLimit));
    EXPECT_FALSE(isCounted(zyr::kLzfBlock + 1, kNoLimit));
    EXPECT_FALSE(isCounted(kSeveral, zyr::lzfWorstCase(kSeveral) + 64));
    EXPECT_TRUE(isCounted(kSeveral, zyr::lzfWorstCase(kSeveral) + 63));
}

TEST(StreamWriter, TellsItsSizeWhenWritten) {
    const Bytes body = test::randomBytes(kSeveral, 256, 5);
    const zyr::File file(std::tmpfile());
    zyr::StreamWriter writer(sourceOf(body), body.size(), kNoLimit);
    ASSERT_TRUE(writer.write(file.get(), 0));
    EXPECT_EQ(writer.sizeWord(), written(body).size() - 4);
}
