#include <gtest/gtest.h>

#include <limits>

#include "support/CloudFile.h"
#include "support/ZyrValues.h"

/// Bodies of kind "binary_compressed" with columns other than the writer's own.

using test::Bytes;
using test::bytesOf;
using test::CloudHeader;
using test::LoadedCloud;

namespace {

using Values = std::vector<double>;

const Values kPoints = {1, 2, 3, 4, 5, 6};
const float kNaNFloat = std::numeric_limits<float>::quiet_NaN();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

Bytes doubles() {
    return bytesOf<double>({1, 4, 2, 5, 3, 6});
}

LoadedCloud load(const CloudHeader& header, const Bytes& body, bool withNormals = true,
                 bool withColors = true, std::uint32_t channels = 3) {
    return test::loadBytes(test::joined(header.bytes(), test::compressed(channels, body)),
                           withNormals, withColors);
}

}  // namespace

TEST(CompressedCloud, FloatColumnsAreRead) {
    const auto cloud = load(CloudHeader(2).columns("x y z", "4 4 4", "F F F", "1 1 1"),
                            bytesOf<float>({1, 4, 2, 5, 3, 6}));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), kPoints);
}

TEST(CompressedCloud, EachColumnGoesByItsOwnSize) {
    const auto cloud = load(
        CloudHeader(2).columns("x y z", "8 4 8", "F F F", "1 1 1"),
        test::joined({bytesOf<double>({1, 4}), bytesOf<float>({2, 5}), bytesOf<double>({3, 6})}));
    EXPECT_EQ(test::values(cloud.points), kPoints);
}

TEST(CompressedCloud, NormalsGoByTheirOwnSizes) {
    const auto cloud =
        load(CloudHeader(2).columns("x y z nx ny nz", "8 8 8 4 8 4", "F F F F F F", "1 1 1 1 1 1"),
             test::joined({doubles(), bytesOf<float>({1, 4}), bytesOf<double>({2, 5}),
                           bytesOf<float>({3, 6})}));
    EXPECT_EQ(test::values(cloud.normals), kPoints);
}

TEST(CompressedCloud, NormalsAndColoursMayComeFirst) {
    const auto normals =
        load(CloudHeader(2).columns("nx ny nz x y z", "8 8 8 8 8 8", "F F F F F F", "1 1 1 1 1 1"),
             test::joined(doubles(), bytesOf<double>({9, 9, 9, 9, 9, 9})));
    EXPECT_EQ(test::values(normals.normals), kPoints);
    const auto colors = load(CloudHeader(2).columns("rgb x y z", "4 8 8 8", "U F F F", "1 1 1 1"),
                             test::joined(bytesOf<std::uint32_t>({0x0A141E, 0x010203}), doubles()));
    EXPECT_EQ(test::values(colors.points), kPoints);
    EXPECT_EQ(colors.colorBytes(), (Bytes{30, 20, 10, 3, 2, 1}));
}

TEST(CompressedCloud, CoordinatesOfAnotherSizeAreRefused) {
    for (const char* sizes : {"2 8 8", "8 8 1", "8 16 8", "0 0 0"}) {
        const auto header = CloudHeader(2).columns("x y z", sizes, "F F F", "1 1 1");
        for (std::size_t size : {0U, 34U, 36U, 48U, 64U})
            EXPECT_FALSE(load(header, Bytes(size)).isLoaded) << sizes << ", " << size;
    }
}

TEST(CompressedCloud, NormalsOfAnotherSizeAreRefusedWhereTheyAreWanted) {
    const auto header =
        CloudHeader(2).columns("x y z nx ny nz", "8 8 8 2 2 2", "F F F F F F", "1 1 1 1 1 1");
    const Bytes body = test::joined(doubles(), Bytes(12));
    EXPECT_FALSE(load(header, body, true).isLoaded);
    EXPECT_TRUE(load(header, body, false).isLoaded);
}

TEST(CompressedCloud, UnknownColumnsInFrontAreSteppedOver) {
    const auto cloud = load(CloudHeader(2).columns("t x y z", "2 8 8 8", "U F F F", "1 1 1 1"),
                            test::joined(Bytes(4, 9), doubles()));
    EXPECT_EQ(test::values(cloud.points), kPoints);
}

TEST(CompressedCloud, UnknownColumnsBetweenAreSteppedOver) {
    const auto cloud =
        load(CloudHeader(2).columns("x y z a rgb b nx ny nz", "8 8 8 1 4 3 8 8 8", "F",
                                    "1 1 1 1 1 1 1 1 1"),
             test::joined({doubles(), Bytes(2, 9), bytesOf<std::uint32_t>({0x010203, 0x040506}),
                           Bytes(6, 9), doubles()}));
    EXPECT_EQ(test::values(cloud.points), kPoints);
    EXPECT_EQ(test::values(cloud.normals), kPoints);
    EXPECT_EQ(cloud.colorBytes(), (Bytes{3, 2, 1, 6, 5, 4}));
}

TEST(CompressedCloud, UnknownColumnsBehindAreSteppedOver) {
    const auto cloud = load(CloudHeader(2).columns("x y z t", "8 8 8 4", "F F F U", "1 1 1 1"),
                            test::joined(doubles(), Bytes(8, 9)));
    EXPECT_EQ(test::values(cloud.points), kPoints);
}

TEST(CompressedCloud, GroupsMayComeInAnyOrder) {
    const auto cloud =
        load(CloudHeader(2).columns("rgb nx ny nz x y z", "4 8 8 8 8 8 8", "U", "1 1 1 1 1 1 1"),
             test::joined({bytesOf<std::uint32_t>({1, 2}), Bytes(48), doubles()}));
    EXPECT_EQ(test::values(cloud.points), kPoints);
    EXPECT_EQ(test::values(cloud.normals), Values(6, 0));
    EXPECT_EQ(cloud.colorBytes(), (Bytes{1, 0, 0, 2, 0, 0}));
}

TEST(CompressedCloud, FirstOfManyValuesIsRead) {
    const auto cloud =
        load(CloudHeader(2).columns("t x y z", "2 8 4 8", "F F F F", "3 2 2 1"),
             test::joined({Bytes(12, 9), bytesOf<double>({1, -1, 4, -4}),
                           bytesOf<float>({2, -2, 5, -5}), bytesOf<double>({3, 6})}));
    EXPECT_EQ(test::values(cloud.points), kPoints);
}

TEST(CompressedCloud, FirstOfAnyNumberOfValuesIsRead) {
    for (const std::size_t count : {2, 8, 64, 1024, 1025, 8191, 8192, 9000}) {
        const std::size_t numPoints = count > 64 ? 3 : 1500;
        Bytes body;
        for (std::size_t i = 0; i < numPoints; ++i) {
            test::put(body, double(i));
            body.resize(body.size() + 8 * (count - 1), 0xEE);
        }
        for (std::size_t i = 0; i < 2 * numPoints; ++i) test::put(body, -double(i));
        const std::string counts = std::to_string(count) + " 1 1";
        const auto header = CloudHeader(long(numPoints)).columns("x y z", "8 8 8", "F F F", counts);
        Values expected;
        for (std::size_t i = 0; i < numPoints; ++i)
            expected.insert(expected.end(), {double(i), -double(i), -double(numPoints + i)});
        const LoadedCloud cloud = load(header, body);
        EXPECT_TRUE(cloud.isLoaded) << count;
        EXPECT_EQ(test::values(cloud.points), expected) << count;
    }
}

TEST(CompressedCloud, FirstOfManyValuesMayBeTheLastOfACutFile) {
    const Bytes body = bytesOf<double>({1, 4, 2, 5, 3, 9, 6, 9});
    const Bytes file =
        test::joined(CloudHeader(2).columns("x y z", "8 8 8", "F F F", "1 1 2").bytes(),
                     test::compressed(1, body));
    const auto valuesOf = [&](std::size_t missing) {
        return test::values(test::loadBytes(test::prefix(file, file.size() - missing)).points);
    };
    EXPECT_EQ(valuesOf(8), kPoints);
    EXPECT_EQ(valuesOf(9), (Values{1, 2, 3, 4, 5, 0}));
}

TEST(CompressedCloud, FirstOfManyColourWordsIsRead) {
    const auto cloud = load(CloudHeader(2).columns("x y z rgb", "8 8 8 4", "F F F U", "1 1 1 2"),
                            test::joined(doubles(), bytesOf<std::uint32_t>({1, 9, 2, 9})));
    EXPECT_EQ(cloud.colorBytes(), (Bytes{1, 0, 0, 2, 0, 0}));
}

TEST(CompressedCloud, CoordinatesOfNoValueAreRefused) {
    EXPECT_FALSE(
        load(CloudHeader(2).columns("x y z", "8 8 8", "F F F", "1 0 1"), Bytes(32)).isLoaded);
}

TEST(CompressedCloud, TypeLettersAreNotConsulted) {
    EXPECT_EQ(
        test::values(
            load(CloudHeader(2).columns("x y z", "8 8 8", "I U ?", "1 1 1"), doubles()).points),
        kPoints);
}

TEST(CompressedCloud, NaNIsNotStored) {
    const auto cloud = load(CloudHeader(2), bytesOf<double>({kNaN, 4, 2, kNaN, 3, 6}));
    EXPECT_EQ(test::values(cloud.points), (Values{0, 2, 3, 4, 0, 6}));
}

TEST(CompressedCloud, NaNFloatIsNotStored) {
    const auto cloud = load(CloudHeader(1).columns("x y z", "4 4 4", "F F F", "1 1 1"),
                            bytesOf<float>({1, kNaNFloat, 3}));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 0, 3}));
}

TEST(CompressedCloud, NaNOfANormalIsNotStored) {
    const auto cloud =
        load(CloudHeader(1).columns("x y z nx ny nz", "8 8 8 8 8 8", "F", "1 1 1 1 1 1"),
             bytesOf<double>({1, 2, 3, kNaN, 5, kNaN}));
    EXPECT_EQ(test::values(cloud.normals), (Values{0, 5, 0}));
}

TEST(CompressedCloud, InfinitiesAreStored) {
    const double infinity = std::numeric_limits<double>::infinity();
    const auto cloud = load(CloudHeader(1), bytesOf<double>({infinity, -infinity, 0}));
    EXPECT_EQ(test::values(cloud.points), (Values{infinity, -infinity, 0}));
}

TEST(CompressedCloud, OldElementsAreReplaced) {
    const test::MemoryFile file(
        test::joined(CloudHeader(1).bytes(), test::compressed(1, bytesOf<double>({kNaN, 2, 3}))));
    ZyrVector3dArray points = test::vectors({7, 8, 9, 10, 11, 12}), normals = points.DeepCopy();
    cv::Mat colors;
    EXPECT_TRUE(
        Zyr3DFileIO::LoadPointCloud(points, normals, colors, file.path().c_str(), true, true));
    EXPECT_EQ(test::values(points), (Values{0, 2, 3}));
    EXPECT_EQ(normals.Length(), 0);
}

TEST(CompressedCloud, UnwantedNormalsAreCleared) {
    const auto header = CloudHeader(1).columns("x y z nx ny nz", "8 8 8 8 8 8", "F", "1 1 1 1 1 1");
    const auto cloud = load(header, bytesOf<double>({1, 2, 3, 4, 5, 6}), false);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3}));
    EXPECT_EQ(cloud.normals.Length(), 0);
}

TEST(CompressedCloud, UncompressedSizeWordIsNotConsulted) {
    for (std::uint32_t size : {0U, 1U, 47U, 49U, 0xFFFFFFFFU}) {
        const auto cloud = test::loadBytes(test::joined(
            CloudHeader(2).bytes(), test::compressed(1, test::literalStream(doubles()), size)));
        EXPECT_TRUE(cloud.isLoaded) << size;
        EXPECT_EQ(test::values(cloud.points), kPoints) << size;
    }
}

TEST(CompressedCloud, StreamOfFewerBytesIsRefused) {
    EXPECT_FALSE(load(CloudHeader(2), Bytes(47)).isLoaded);
    EXPECT_FALSE(load(CloudHeader(2), Bytes(24)).isLoaded);
    EXPECT_FALSE(load(CloudHeader(2), {}).isLoaded);
}

TEST(CompressedCloud, StreamOfMoreBytesIsRefused) {
    EXPECT_FALSE(load(CloudHeader(2), Bytes(49)).isLoaded);
    EXPECT_FALSE(load(CloudHeader(2), Bytes(1000)).isLoaded);
}

TEST(CompressedCloud, StreamThatEndsInsideAChunkIsRefused) {
    const Bytes stream = test::literalStream(doubles());
    for (std::size_t size = 0; size < stream.size(); ++size)
        EXPECT_FALSE(
            test::loadBytes(test::joined(CloudHeader(2).bytes(),
                                         test::compressed(1, test::prefix(stream, size), 48)))
                .isLoaded)
            << size;
}

TEST(CompressedCloud, ReferenceBeforeTheBodyIsRefused) {
    EXPECT_FALSE(test::loadBytes(
                     test::joined(CloudHeader(2).bytes(), test::compressed(1, {7 << 5, 39, 0}, 48)))
                     .isLoaded);
}

TEST(CompressedCloud, ReferenceBeforeTheBodyIsRefusedInACutFileToo) {
    Bytes file = test::joined(CloudHeader(2).bytes(), test::compressed(1, {7 << 5, 39, 0}, 48));
    file[CloudHeader(2).bytes().size() + 4] = 100;
    EXPECT_FALSE(test::loadBytes(file).isLoaded);
}

TEST(CompressedCloud, StatedStreamSizeBeyondTheFileGivesWhatIsThere) {
    Bytes file = test::joined(CloudHeader(2).bytes(), test::compressed(1, doubles()));
    const std::size_t sizeWord = CloudHeader(2).bytes().size() + 4;
    for (const unsigned char high : Bytes{0x01, 0x7F, 0xFF}) {
        file[sizeWord + 3] = high;
        const auto cloud = test::loadBytes(file);
        EXPECT_TRUE(cloud.isLoaded);
        EXPECT_EQ(test::values(cloud.points), kPoints);
    }
}

TEST(CompressedCloud, CutFloatColumnsGiveWhatIsThere) {
    const Bytes file =
        test::joined(CloudHeader(2).columns("x y z", "4 4 4", "F F F", "1 1 1").bytes(),
                     test::compressed(1, bytesOf<float>({1, 4, 2, 5, 3, 6})));
    const auto cloud = test::loadBytes(test::prefix(file, file.size() - 9));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 0, 4, 0, 0}));
}

TEST(CompressedCloud, NoPointsLoad) {
    const auto header =
        CloudHeader(0).columns("x y z nx ny nz rgb", "8 8 8 8 8 8 4", "F", "1 1 1 1 1 1 1");
    const auto cloud = load(header, {});
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(cloud.points.Length(), 0);
    EXPECT_EQ(cloud.normals.Length(), 0);
    EXPECT_EQ(cloud.colors.total(), 0U);
}

TEST(CompressedCloud, NoPointsWithABodyAreRefused) {
    EXPECT_FALSE(load(CloudHeader(0), Bytes(1)).isLoaded);
}
