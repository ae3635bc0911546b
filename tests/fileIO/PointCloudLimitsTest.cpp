#include <gtest/gtest.h>

#include "support/CloudFile.h"

/// How many elements a file may declare: what takes more than 64 MiB must be backed by its bytes.

using test::Bytes;
using test::CloudHeader;

namespace {

// 64 MiB hold 2796202 vectors and two thirds.
constexpr long kMostPoints = 2796202;
constexpr long kMostPointsWithNormals = 1398101;
constexpr long kMostColouredPoints = 67108864 / 28;

CloudHeader floats(long n) {
    return CloudHeader(n).columns("x y z", "4 4 4", "F F F", "1 1 1");
}

CloudHeader withNormals(CloudHeader header) {
    return header.columns("x y z nx ny nz", "4 4 4 4 4 4", "F F F F F F", "1 1 1 1 1 1");
}

CloudHeader withColors(CloudHeader header) {
    return header.columns("rgb x y z", "4 4 4 4", "U F F F", "1 1 1 1");
}

bool loads(const CloudHeader& header, const Bytes& body) {
    return test::loadBytes(test::joined(header.bytes(), body)).isLoaded;
}

bool loadsAscii(CloudHeader header, std::size_t bytes = 0) {
    return loads(header.kind("ascii"), Bytes(bytes, '0'));
}

bool loadsBinary(CloudHeader header, std::size_t bytes = 0) {
    return loads(header.kind("binary"), Bytes(bytes));
}

/// The shortest stream of so many zeros: 264 for 3 bytes.
Bytes zeroStream(std::size_t size) {
    Bytes stream = {0, 0};
    for (std::size_t left = size - 1; left > 0;) {
        const std::size_t length = std::min<std::size_t>(left, 264);
        if (length < 9) {
            const Bytes tail = test::literalStream(Bytes(length));
            stream.insert(stream.end(), tail.begin(), tail.end());
        } else {
            for (const std::size_t byte : {std::size_t(0xE0), length - 9, std::size_t(0)})
                stream.push_back(static_cast<unsigned char>(byte));
        }
        left -= length;
    }
    return stream;
}

/// Three words and so many bytes of the stream, of which the words state all.
bool loadsCompressed(const CloudHeader& header, std::size_t bodySize, std::size_t present) {
    const Bytes body = test::compressed(4, zeroStream(bodySize), 0);
    return loads(header, test::prefix(body, 12 + present));
}

}  // namespace

TEST(CloudLimits, AsciiElementsOf64MiBNeedNoBytes) {
    EXPECT_TRUE(loadsAscii(CloudHeader(kMostPoints)));
    EXPECT_FALSE(loadsAscii(CloudHeader(kMostPoints + 1)));
}

TEST(CloudLimits, AsciiNormalsCountWhereTheyAreWanted) {
    EXPECT_TRUE(loadsAscii(withNormals(CloudHeader(kMostPointsWithNormals))));
    const CloudHeader more = withNormals(CloudHeader(kMostPointsWithNormals + 1));
    EXPECT_FALSE(loadsAscii(more));
    EXPECT_TRUE(test::loadBytes(CloudHeader(more).kind("ascii").bytes(), false).isLoaded);
}

TEST(CloudLimits, AsciiElementsBeyondNeedSixBytesEach) {
    EXPECT_TRUE(loadsAscii(CloudHeader(kMostPoints + 1), 6 * (kMostPoints + 1)));
    EXPECT_FALSE(loadsAscii(CloudHeader(kMostPoints + 1), 6 * (kMostPoints + 1) - 1));
}

TEST(CloudLimits, BinaryElementsOf64MiBNeedNoBytes) {
    EXPECT_TRUE(loadsBinary(floats(kMostPoints)));
    EXPECT_FALSE(loadsBinary(floats(kMostPoints + 1)));
}

TEST(CloudLimits, BinaryNormalsAndColoursCount) {
    EXPECT_TRUE(loadsBinary(withNormals(CloudHeader(kMostPointsWithNormals))));
    EXPECT_FALSE(loadsBinary(withNormals(CloudHeader(kMostPointsWithNormals + 1))));
    EXPECT_TRUE(loadsBinary(withColors(CloudHeader(kMostColouredPoints))));
    EXPECT_FALSE(loadsBinary(withColors(CloudHeader(kMostColouredPoints + 1))));
}

TEST(CloudLimits, BinaryElementsBeyondNeedTheirRecords) {
    EXPECT_TRUE(loadsBinary(floats(kMostPoints + 1), 12 * (kMostPoints + 1)));
    EXPECT_FALSE(loadsBinary(floats(kMostPoints + 1), 12 * (kMostPoints + 1) - 1));
}

TEST(CloudLimits, BinaryRecordsOfNoBytesBackNothing) {
    CloudHeader header = CloudHeader(kMostPoints + 1).columns("x y z", "0 0 0", "F F F", "1 1 1");
    EXPECT_FALSE(loadsBinary(header));
}

TEST(CloudLimits, CompressedElementsOf64MiBNeedNoBytes) {
    EXPECT_TRUE(loadsCompressed(floats(kMostPoints), 12 * kMostPoints, 0));
    EXPECT_FALSE(loadsCompressed(floats(kMostPoints + 1), 12 * (kMostPoints + 1), 0));
}

TEST(CloudLimits, CompressedNormalsAndColoursCountWhereTheyAreWanted) {
    const CloudHeader normals = withNormals(CloudHeader(kMostPointsWithNormals));
    EXPECT_TRUE(loadsCompressed(normals, 24 * kMostPointsWithNormals, 0));
    const CloudHeader moreNormals = withNormals(CloudHeader(kMostPointsWithNormals + 1));
    EXPECT_FALSE(loadsCompressed(moreNormals, 24 * (kMostPointsWithNormals + 1), 0));
    const CloudHeader colors = withColors(CloudHeader(kMostColouredPoints));
    EXPECT_TRUE(loadsCompressed(colors, 16 * kMostColouredPoints, 0));
    const CloudHeader moreColors = withColors(CloudHeader(kMostColouredPoints + 1));
    EXPECT_FALSE(loadsCompressed(moreColors, 16 * (kMostColouredPoints + 1), 0));
}

TEST(CloudLimits, ColoursOfNoStatedChannelsCountNothing) {
    EXPECT_TRUE(loads(withColors(CloudHeader(kMostPoints)), {}));
}

TEST(CloudLimits, CompressedElementsBeyondNeedAByteForEach88) {
    // 12 x 2796203 / 88 = 381300.4
    const CloudHeader header = floats(kMostPoints + 1);
    EXPECT_TRUE(loadsCompressed(header, 12 * (kMostPoints + 1), 381301));
    EXPECT_FALSE(loadsCompressed(header, 12 * (kMostPoints + 1), 381300));
}

TEST(CloudLimits, StreamThatShrinksAsFarAsPossibleLoadsWhole) {
    const CloudHeader header = floats(kMostPoints + 1);
    EXPECT_TRUE(loadsCompressed(header, 12 * (kMostPoints + 1), 1000000));
}

TEST(CloudLimits, MostPointsThatAHeaderCanStateAreRefused) {
    for (const char* kind : {"ascii", "binary", "binary_compressed"})
        EXPECT_FALSE(loads(CloudHeader(2147483647).kind(kind), Bytes(100))) << kind;
}

TEST(CloudLimits, LargeUnknownColumnOfACutBodyIsSteppedOver) {
    const CloudHeader header =
        CloudHeader(1).columns("x y z a", "8 8 8 1", "F F F U", "1 1 1 60000000");
    const Bytes body =
        test::compressed(1, test::literalStream(test::bytesOf<double>({1, 2, 3})), 0);
    Bytes file = test::joined(header.bytes(), body);
    file[header.bytes().size() + 7] = 1;  // a stream of more than 16 MiB, which is not there
    EXPECT_TRUE(test::loadBytes(file).isLoaded);
}
