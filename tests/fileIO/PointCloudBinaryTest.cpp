#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/CloudFile.h"
#include "support/ZyrValues.h"

/// Bodies of the kinds "binary", point after point, and "ascii", which is not read.

using test::Bytes;
using test::bytesOf;
using test::CloudHeader;

namespace {

using Values = std::vector<double>;

test::LoadedCloud load(CloudHeader header, const Bytes& body, bool withNormals = true,
                       bool withColors = true) {
    return test::loadBytes(test::joined(header.kind("binary").bytes(), body), withNormals,
                           withColors);
}

CloudHeader coloured(long n) {
    return CloudHeader(n).columns("x y z rgb", "4 4 4 4", "F F F U", "1 1 1 1");
}

Bytes colouredRecord(float x, std::uint32_t word) {
    return test::joined(bytesOf<float>({x, x, x}), bytesOf<std::uint32_t>({word}));
}

}  // namespace

TEST(BinaryCloud, DoublesAreReadPointAfterPoint) {
    const auto cloud = load(CloudHeader(2), bytesOf<double>({1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3, 4, 5, 6}));
}

TEST(BinaryCloud, FloatsAreReadPointAfterPoint) {
    const auto cloud = load(CloudHeader(2).columns("x y z", "4 4 4", "F F F", "1 1 1"),
                            bytesOf<float>({1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3, 4, 5, 6}));
}

TEST(BinaryCloud, SizeOfXDecidesForYAndZ) {
    const auto floats = load(CloudHeader(1).columns("x y z", "4 8 8", "F F F", "1 1 1"),
                             bytesOf<float>({1, 2, -1, 3, -1}));
    EXPECT_EQ(test::values(floats.points), (Values{1, 2, 3}));
    const auto odd = load(CloudHeader(1).columns("x y z", "5 4 4", "F F F", "1 1 1"),
                          test::joined({bytesOf<float>({1}), {0}, bytesOf<float>({2, 3})}));
    EXPECT_EQ(test::values(odd.points), (Values{1, 2, 3}));
}

TEST(BinaryCloud, UnknownFieldsAreSteppedOver) {
    const Bytes record = test::joined({{9, 9, 9}, bytesOf<double>({1, 2, 3}), {9}});
    const auto cloud =
        load(CloudHeader(2).columns("a x y z b", "3 8 8 8 1", "U F F F U", "1 1 1 1 1"),
             test::joined(record, record));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3, 1, 2, 3}));
}

TEST(BinaryCloud, FirstOfManyValuesIsRead) {
    const auto cloud = load(CloudHeader(1).columns("x y z", "8 8 8", "F F F", "2 1 3"),
                            bytesOf<double>({1, -1, 2, 3, -1, -1}));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3}));
}

TEST(BinaryCloud, ValuesOfMoreThan32BytesAreReadPast) {
    for (const char* size : {"33", "100", "5000", "9000"}) {
        const std::string sizes = std::string(size) + " 8 8 8";
        const Bytes record = test::joined(Bytes(std::stoul(size), 9), bytesOf<double>({1, 2, 3}));
        const auto cloud = load(CloudHeader(2).columns("a x y z", sizes, "U F F F", "1 1 1 1"),
                                test::joined(record, record));
        EXPECT_TRUE(cloud.isLoaded);
        EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3, 1, 2, 3})) << size;
    }
}

TEST(BinaryCloud, LargeCoordinatesKeepTheirFirstBytes) {
    const auto cloud =
        load(CloudHeader(1).columns("x y z", "8 8 8", "F F F", "10 1 1"),
             test::joined({bytesOf<double>({1}), Bytes(72, 9), bytesOf<double>({2, 3})}));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3}));
}

TEST(BinaryCloud, FieldsOfNoBytesAreZero) {
    const auto cloud =
        load(CloudHeader(1).columns("x y z", "8 8 8", "F F F", "1 0 1"), bytesOf<double>({1, 3}));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 0, 3}));
}

TEST(BinaryCloud, NaNIsKept) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto cloud = load(CloudHeader(1), bytesOf<double>({1, nan, 3}));
    ASSERT_EQ(cloud.points.Length(), 1);
    EXPECT_TRUE(std::isnan(cloud.points[0].y));
}

TEST(BinaryCloud, NormalsAreZeroVectors) {
    const auto header = CloudHeader(1).columns("x y z nx ny nz", "8 8 8 8 8 8", "F", "1 1 1 1 1 1");
    const auto cloud = load(header, bytesOf<double>({1, 2, 3, 4, 5, 6}), true);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3}));
    EXPECT_EQ(test::values(cloud.normals), (Values{0, 0, 0}));
}

TEST(BinaryCloud, NormalsAreClearedWhereNotWantedOrNotThere) {
    const auto header = CloudHeader(1).columns("x y z nx ny nz", "8 8 8 8 8 8", "F", "1 1 1 1 1 1");
    EXPECT_EQ(load(header, Bytes(48), false).normals.Length(), 0);
    EXPECT_EQ(load(CloudHeader(1), Bytes(24), true).normals.Length(), 0);
}

TEST(BinaryCloud, ColoursAreReadWhetherWantedOrNot) {
    const Bytes body = test::joined(colouredRecord(1, 0x800A141E), colouredRecord(2, 0x00010203));
    for (const bool withColors : {false, true}) {
        const auto cloud = load(coloured(2), body, true, withColors);
        EXPECT_EQ(cloud.colors.type(), CV_8UC4);
        EXPECT_EQ(cloud.colors.size(), cv::Size(2, 1));
        EXPECT_EQ(cloud.colorBytes(), (Bytes{30, 20, 10, 128, 3, 2, 1, 0}));
    }
}

TEST(BinaryCloud, ColoursMayComeFirst) {
    const auto header = CloudHeader(1).columns("rgb x y z", "4 4 4 4", "U F F F", "1 1 1 1");
    const auto cloud =
        load(header, test::joined(bytesOf<std::uint32_t>({0x800A141E}), bytesOf<float>({1, 2, 3})));
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3}));
    EXPECT_EQ(cloud.colorBytes(), (Bytes{30, 20, 10, 128}));
}

TEST(BinaryCloud, ColourWordsOfFewerBytesHaveZerosAbove) {
    const Bytes words = {0x1E, 0x14, 0x0A};
    for (std::size_t size = 0; size < 4; ++size) {
        const auto header = CloudHeader(2).columns("x y z rgb", "4 4 4 " + std::to_string(size),
                                                   "F F F U", "1 1 1 1");
        const Bytes record = test::joined(bytesOf<float>({1, 2, 3}), test::prefix(words, size));
        Bytes color(4, 0);
        std::copy_n(words.begin(), size, color.begin());
        const auto cloud = load(header, test::joined(record, record));
        EXPECT_EQ(cloud.colorBytes(), test::joined(color, color)) << size;
        EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3, 1, 2, 3})) << size;
    }
}

TEST(BinaryCloud, ColourMatrixStaysWhereTheFileHasNone) {
    const test::MemoryFile file(test::joined(CloudHeader(1).kind("binary").bytes(), Bytes(24)));
    ZyrVector3dArray points, normals;
    cv::Mat colors = test::colorRow({9}, 1);
    EXPECT_TRUE(
        Zyr3DFileIO::LoadPointCloud(points, normals, colors, file.path().c_str(), true, true));
    EXPECT_EQ(colors.at<unsigned char>(0, 0), 9);
}

TEST(BinaryCloud, EveryCutGivesWhatIsThereAndZeros) {
    const Bytes body = test::joined(colouredRecord(1, 0xFF010203), colouredRecord(2, 0xFF040506));
    for (std::size_t size = 0; size <= body.size(); ++size) {
        const auto cloud = load(coloured(2), test::prefix(body, size));
        ASSERT_TRUE(cloud.isLoaded);
        Values points(6);
        Bytes colors(8);
        for (std::size_t i = 0; i < 2; ++i) {
            for (std::size_t k = 0; k < 3; ++k)
                if (size >= i * 16 + k * 4 + 4) points[i * 3 + k] = static_cast<double>(i + 1);
            if (size < i * 16 + 16) continue;
            const Bytes color = i == 0 ? Bytes{3, 2, 1, 255} : Bytes{6, 5, 4, 255};
            std::copy_n(color.begin(), 4, colors.begin() + static_cast<std::ptrdiff_t>(i * 4));
        }
        EXPECT_EQ(test::values(cloud.points), points) << size;
        EXPECT_EQ(cloud.colorBytes(), colors) << size;
    }
}

TEST(BinaryCloud, CutInsideALargeUnknownFieldKeepsTheRest) {
    const auto header = CloudHeader(2).columns("x y z a", "4 4 4 5000", "F F F U", "1 1 1 1");
    const auto cloud = load(header, test::joined(bytesOf<float>({1, 2, 3}), Bytes(4500, 9)));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3, 0, 0, 0}));
}

TEST(BinaryCloud, CutInsideALargeCoordinateLeavesItZero) {
    const auto header = CloudHeader(1).columns("x y z", "8 8 8", "F F F", "1 1 10");
    const auto cloud = load(header, test::joined(bytesOf<double>({1, 2, 3}), Bytes(48, 9)));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 0}));
}

TEST(BinaryCloud, BytesBehindTheRecordsAreIgnored) {
    const auto cloud = load(CloudHeader(1), bytesOf<double>({1, 2, 3, 4}));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), (Values{1, 2, 3}));
}

TEST(BinaryCloud, NoPointsLoad) {
    const auto cloud = load(coloured(0), {});
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(cloud.points.Length(), 0);
    EXPECT_EQ(cloud.colors.total(), 0U);
}

TEST(BinaryCloud, BodySizeBeyond64BitsIsRefused) {
    // (2^31 - 1)^2 bytes a field: four of them fit, five do not.
    const auto header = [](long n) {
        return CloudHeader(n).columns("x y z a", "8 8 8 2147483647", "F F F U", "1 1 1 2147483647");
    };
    EXPECT_TRUE(load(header(4), Bytes(100)).isLoaded);
    EXPECT_FALSE(load(header(5), Bytes(100)).isLoaded);
}

TEST(AsciiCloud, IsNotReadAndGivesPointsAtTheOrigin) {
    const Bytes file =
        test::joined(CloudHeader(2).kind("ascii").bytes(), test::toBytes("1 2 3\n4 5 6\n"));
    const auto cloud = test::loadBytes(file);
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), Values(6, 0));
}

TEST(AsciiCloud, NeedsNoBody) {
    const auto cloud = test::loadBytes(CloudHeader(3).kind("ascii").bytes());
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::values(cloud.points), Values(9, 0));
}

TEST(AsciiCloud, NormalsAreZeroVectorsWhereWanted) {
    const auto header =
        CloudHeader(2).columns("x y z nx ny nz", "4 4 4 4 4 4", "F", "1 1 1 1 1 1").kind("ascii");
    EXPECT_EQ(test::values(test::loadBytes(header.bytes(), true).normals), Values(6, 0));
    EXPECT_EQ(test::loadBytes(header.bytes(), false).normals.Length(), 0);
}

TEST(AsciiCloud, ColoursAreNotTouched) {
    const test::MemoryFile file(coloured(2).kind("ascii").bytes());
    ZyrVector3dArray points, normals;
    cv::Mat none, colors = test::colorRow({7, 8, 9}, 3);
    for (cv::Mat* matrix : {&none, &colors})
        EXPECT_TRUE(
            Zyr3DFileIO::LoadPointCloud(points, normals, *matrix, file.path().c_str(), true, true));
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(colors.size(), cv::Size(1, 1));
    EXPECT_EQ(colors.at<cv::Vec3b>(0, 0), cv::Vec3b(7, 8, 9));
}

TEST(AsciiCloud, ColumnsOfAnySizeLoad) {
    const auto header = CloudHeader(2).columns("x y z", "2 0 77", "F F F", "0 1 1").kind("ascii");
    EXPECT_TRUE(test::loadBytes(header.bytes()).isLoaded);
}
