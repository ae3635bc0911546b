#include "fileIO/LzfReader.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "fileIO/File.h"
#include "fileIO/LzfCodec.h"
#include "support/LzfData.h"
#include "support/MemoryFile.h"
#include "support/PlainLzf.h"

using test::Bytes;

namespace {

/// Shorter and longer than the reader's window, and far beyond its pieces.
std::vector<test::NamedBytes> bodies() {
    std::vector<test::NamedBytes> bodies = test::madeData();
    bodies.emplace_back("empty", Bytes());
    bodies.emplace_back("long random", test::randomBytes(400001, 256, 8));
    bodies.emplace_back("long, sixteen values", test::randomBytes(400001, 16, 9));
    bodies.emplace_back("long, farthest references",
                        test::repeated(test::randomBytes(8192, 256, 10), 400001));
    bodies.emplace_back("long zeros", Bytes(3000000));
    return bodies;
}

Bytes encoded(const Bytes& body) {
    Bytes stream(zyr::lzfWorstCase(body.size()));
    stream.resize(zyr::lzfCompress(body.data(), body.size(), stream.data(), stream.size()));
    return stream;
}

struct Read {
    Bytes bytes;
    bool isSound = false;
};

/// The body as the reader gives it, taken in steps of so many bytes.
Read readThrough(std::FILE* file, std::uint64_t streamSize, std::uint64_t bodySize,
                 std::size_t step) {
    zyr::LzfReader reader(file, streamSize, bodySize);
    Read read;
    for (std::size_t waiting; (waiting = std::min(reader.peek(step), step)) > 0;) {
        read.bytes.insert(read.bytes.end(), reader.data(), reader.data() + waiting);
        reader.take(waiting);
    }
    read.isSound = reader.finish();
    return read;
}

Read readThrough(const Bytes& file, std::uint64_t streamSize, std::uint64_t bodySize,
                 std::size_t step) {
    const test::MemoryFile memory(file);
    const zyr::File opened = zyr::openFile(memory.path().c_str(), "rb");
    return readThrough(opened.get(), streamSize, bodySize, step);
}

}  // namespace

TEST(LzfReader, GivesTheBodyInStepsOfAnySize) {
    for (const auto& [name, body] : bodies()) {
        const Bytes stream = encoded(body);
        for (const std::size_t step : {1U, 7U, 8U, 1000U, 8192U}) {
            if (step < 8 && body.size() > 30000) continue;
            const Read read = readThrough(stream, stream.size(), body.size(), step);
            EXPECT_TRUE(read.isSound) << name << ", " << step;
            EXPECT_TRUE(read.bytes == body) << name << ", " << step;
        }
    }
}

TEST(LzfReader, SkipsWhatIsNotWanted) {
    const Bytes body = test::randomBytes(400001, 16, 11);
    const Bytes stream = encoded(body);
    const test::MemoryFile memory(stream);
    const zyr::File file = zyr::openFile(memory.path().c_str(), "rb");
    zyr::LzfReader reader(file.get(), stream.size(), body.size());
    reader.skip(300000);
    reader.skip(1);
    ASSERT_GE(reader.peek(100), 100U);
    EXPECT_TRUE(std::equal(reader.data(), reader.data() + 100, body.begin() + 300001));
    reader.skip(1000000);
    EXPECT_EQ(reader.peek(1), 0U);
    EXPECT_TRUE(reader.finish());
}

TEST(LzfReader, OfAFileThatEndsAnywhereGivesWhatIsThere) {
    const Bytes stream = encoded(test::randomBytes(3000, 16, 12));
    for (std::size_t size = 0; size < stream.size(); ++size) {
        const Bytes cut = test::prefix(stream, size);
        const Read read = readThrough(cut, stream.size(), 3000, 100);
        EXPECT_TRUE(read.isSound) << size;
        const Bytes expected = size == 0 ? Bytes() : test::plainDecode(cut, 3000);
        EXPECT_EQ(read.bytes, expected) << size;
    }
}

TEST(LzfReader, StreamThatEndsInsideAChunkIsRefusedInAWholeFile) {
    const Bytes stream = encoded(test::randomBytes(200, 256, 13));
    const Bytes cut = test::prefix(stream, stream.size() - 1);
    EXPECT_FALSE(readThrough(cut, cut.size(), 200, 100).isSound);
}

TEST(LzfReader, BodyOfAnotherSizeIsRefused) {
    for (const std::size_t size : {100U, 200000U}) {
        const Bytes stream = encoded(test::randomBytes(size, 256, 14));
        EXPECT_TRUE(readThrough(stream, stream.size(), size, 100).isSound);
        EXPECT_FALSE(readThrough(stream, stream.size(), size - 1, 100).isSound);
        EXPECT_FALSE(readThrough(stream, stream.size(), size + 1, 100).isSound);
        EXPECT_FALSE(readThrough(stream, stream.size(), 0, 100).isSound);
    }
}

TEST(LzfReader, SpoiledStreamsAreTakenAsThePlainDecoderTakesThem) {
    std::mt19937 random(15);
    const Bytes sound = encoded(test::randomBytes(5000, 8, 16));
    for (int round = 0; round < 500; ++round) {
        Bytes stream = sound;
        for (int k = 0; k < 2; ++k)
            stream[random() % stream.size()] = static_cast<unsigned char>(random());
        const auto plain = test::plainDecode(stream, stream.size(), 5000);
        const bool isSound = !plain.isError && !plain.isCut && plain.bytes.size() == 5000;
        const Read read = readThrough(stream, stream.size(), 5000, 512);
        EXPECT_EQ(read.isSound, isSound) << round;
        EXPECT_TRUE(!isSound || read.bytes == plain.bytes) << round;
    }
}

TEST(LzfReader, BadReferenceBehindAWindowOfOutputIsSeen) {
    const Bytes body = test::randomBytes(8100, 256, 17);
    Bytes stream = test::literalStream(body);
    for (const unsigned char byte : Bytes{0x3F, 0xFF, 0}) stream.push_back(byte);  // 8192 back
    EXPECT_FALSE(readThrough(stream, stream.size(), 8104, 100).isSound);
}

TEST(LzfReader, BackingIsAByteForEach88) {
    const Bytes stream(1000);
    const auto isBacked = [&](std::uint64_t streamSize, std::uint64_t bodySize) {
        const test::MemoryFile memory(stream);
        const zyr::File file = zyr::openFile(memory.path().c_str(), "rb");
        return zyr::LzfReader(file.get(), streamSize, bodySize).isBacked();
    };
    EXPECT_TRUE(isBacked(1000, 88000));
    EXPECT_FALSE(isBacked(1000, 88001));
    EXPECT_TRUE(isBacked(5000, 88000));
    EXPECT_FALSE(isBacked(5000, 88001));
    EXPECT_FALSE(isBacked(999, 88000));
}

TEST(LzfReader, PipeIsReadToFindItsBacking) {
    const Bytes body = test::randomBytes(300000, 16, 18);
    const Bytes stream = encoded(body);
    for (const bool isEnough : {true, false}) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        std::thread writer([&] {
            const zyr::File out(fdopen(ends[1], "wb"));
            EXPECT_TRUE(zyr::writeAll(out.get(), stream.data(), stream.size()));
        });
        const zyr::File in(fdopen(ends[0], "rb"));
        zyr::LzfReader reader(in.get(), stream.size() + 10,
                              isEnough ? body.size() : 88 * stream.size() + 1);
        EXPECT_EQ(reader.isBacked(), isEnough);
        EXPECT_GE(reader.peek(8192), 8192U);
        EXPECT_TRUE(std::equal(reader.data(), reader.data() + 8192, body.begin()));
        reader.finish();
        writer.join();
    }
}

TEST(DecodeExactly, FillsTheBufferOrFails) {
    for (const auto& [name, body] : bodies()) {
        const Bytes stream = encoded(body);
        const auto decode = [&](std::size_t streamSize, std::size_t outLen, Bytes& out) {
            const test::MemoryFile memory(stream);
            const zyr::File file = zyr::openFile(memory.path().c_str(), "rb");
            zyr::StreamBytes bytes(file.get(), streamSize);
            out = Bytes(outLen);
            return zyr::decodeExactly(bytes, out.data(), out.size());
        };
        Bytes out;
        EXPECT_TRUE(decode(stream.size(), body.size(), out)) << name;
        EXPECT_TRUE(out == body) << name;
        EXPECT_FALSE(decode(stream.size(), body.size() + 1, out)) << name;
        EXPECT_FALSE(decode(stream.size() + 1, body.size(), out)) << name;
        EXPECT_TRUE(body.empty() || !decode(stream.size(), body.size() - 1, out)) << name;
    }
}
