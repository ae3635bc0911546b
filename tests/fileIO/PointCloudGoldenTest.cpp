#include <gtest/gtest.h>

#include "support/CloudFile.h"
#include "support/DoubleBits.h"
#include "support/GoldenCloud.h"

/// The golden point-cloud files, whole and cut at every byte, through Zyr3DFileIO::LoadPointCloud.

using test::Bytes;
using test::LoadedCloud;

namespace {

class GoldenCloud : public testing::TestWithParam<test::GoldenVariant> {
protected:
    const Bytes file_ = test::readFile(GetParam().path());
};

/// The components, of a column after the other, that a body cut to so many bytes still holds.
ZyrVector3dArray cutVectors(const ZyrVector3dArray& whole, std::size_t bytes) {
    ZyrVector3dArray cut = test::vectors(std::vector<double>(15, 0.0));
    for (std::size_t i = 0; i < std::min<std::size_t>(bytes / 8, 15); ++i)
        cut.Data()[i % 5 * 3 + i / 5] = whole.Data()[i % 5 * 3 + i / 5];
    return cut;
}

Bytes cutColors(const cv::Mat& whole, std::size_t bytes) {
    Bytes cut(whole.total() * whole.elemSize());
    const std::size_t present = std::min(bytes / 4, whole.total()) * whole.elemSize();
    std::copy_n(whole.data, present, cut.begin());
    return cut;
}

std::size_t bytesBehind(std::size_t bytes, std::size_t start) {
    return bytes < start ? 0 : bytes - start;
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(All, GoldenCloud, testing::ValuesIn(test::goldenVariants()),
                         [](const auto& variant) { return variant.param.name; });

TEST_P(GoldenCloud, GivesItsPointsWhateverElseIsWanted) {
    for (const bool withNormals : {false, true})
        for (const bool withColors : {false, true}) {
            const LoadedCloud cloud = test::loadBytes(file_, withNormals, withColors);
            EXPECT_TRUE(cloud.isLoaded);
            EXPECT_EQ(test::bits(cloud.points), test::bits(test::goldenPoints()));
        }
}

TEST_P(GoldenCloud, GivesItsNormalsWhereWanted) {
    for (const bool withNormals : {false, true})
        for (const bool withColors : {false, true}) {
            const LoadedCloud cloud = test::loadBytes(file_, withNormals, withColors);
            const bool expected = withNormals && GetParam().hasNormals;
            EXPECT_EQ(test::bits(cloud.normals),
                      test::bits(expected ? test::goldenNormals() : ZyrVector3dArray()));
        }
}

TEST_P(GoldenCloud, GivesItsColoursWhereWanted) {
    for (const bool withNormals : {false, true})
        for (const bool withColors : {false, true}) {
            const LoadedCloud cloud = test::loadBytes(file_, withNormals, withColors);
            const cv::Mat expected = test::goldenColors(withColors ? GetParam().channels : 0);
            EXPECT_EQ(cloud.colors.size(), expected.size());
            EXPECT_EQ(cloud.colors.type(), expected.type());
            EXPECT_EQ(cloud.colorBytes(), cutColors(expected, 1000));
        }
}

TEST_P(GoldenCloud, CutInsideItsHeaderIsRefused) {
    const std::size_t headerSize = test::CloudParts(file_).header.size();
    ASSERT_GT(headerSize, 0U);
    for (std::size_t size = 0; size < headerSize; ++size)
        EXPECT_FALSE(test::loadBytes(test::prefix(file_, size)).isLoaded) << size;
}

TEST_P(GoldenCloud, CutInsideItsBodyGivesWhatIsThereAndZeros) {
    const test::CloudParts parts(file_);
    const std::size_t streamStart = parts.header.size() + 12;
    const std::size_t normalsStart = 120;
    const std::size_t colorsStart = GetParam().hasNormals ? 240 : 120;
    for (std::size_t size = parts.header.size() + 4; size <= file_.size(); ++size) {
        const LoadedCloud cloud = test::loadBytes(test::prefix(file_, size));
        const Bytes stream = test::prefix(parts.stream, bytesBehind(size, streamStart));
        const std::size_t bytes = test::plainDecode(stream, parts.bodySize).size();
        ASSERT_TRUE(cloud.isLoaded) << size;
        EXPECT_EQ(test::bits(cloud.points), test::bits(cutVectors(test::goldenPoints(), bytes)));
        const ZyrVector3dArray normals =
            cutVectors(test::goldenNormals(), bytesBehind(bytes, normalsStart));
        EXPECT_EQ(test::bits(cloud.normals),
                  test::bits(GetParam().hasNormals ? normals : ZyrVector3dArray()));
        EXPECT_EQ(cloud.colorBytes(), cutColors(test::goldenColors(GetParam().channels),
                                                bytesBehind(bytes, colorsStart)));
    }
}

TEST_P(GoldenCloud, CutBeforeItsChannelCountGivesPointsAtTheOriginWithoutColours) {
    const std::size_t headerSize = test::CloudParts(file_).header.size();
    for (std::size_t size = headerSize; size < headerSize + 4; ++size) {
        const LoadedCloud cloud = test::loadBytes(test::prefix(file_, size));
        EXPECT_TRUE(cloud.isLoaded) << size;
        EXPECT_EQ(test::values(cloud.points), std::vector<double>(15, 0.0));
        EXPECT_TRUE(cloud.colors.empty());
    }
}

TEST_P(GoldenCloud, BytesBehindItsBodyAreIgnored) {
    const LoadedCloud cloud = test::loadBytes(test::joined(file_, {1, 2, 3}));
    EXPECT_TRUE(cloud.isLoaded);
    EXPECT_EQ(test::bits(cloud.points), test::bits(test::goldenPoints()));
}

TEST(GoldenReferences, BodyOfBackReferencesIsRead) {
    const LoadedCloud cloud =
        test::loadFile(ZYR_GOLDEN_DIR "/pointcloud/points_references.zpt", false, true);
    ASSERT_TRUE(cloud.isLoaded);
    ASSERT_EQ(cloud.points.Length(), 700);
    for (int i = 0; i < 700; ++i) {
        const double x = i % 300 + 0.5;
        EXPECT_EQ(test::values(cloud.points[i]), (std::vector<double>{x, 0, -x})) << i;
        EXPECT_EQ(cloud.colors.at<cv::Vec3b>(0, i),
                  cv::Vec3b(static_cast<unsigned char>(i % 5), 0, 0));
    }
}

TEST(GoldenReferences, EveryCutGivesWhatIsThereAndZeros) {
    const Bytes file = test::readFile(ZYR_GOLDEN_DIR "/pointcloud/points_references.zpt");
    const test::CloudParts parts(file);
    ASSERT_EQ(parts.bodySize, 700U * 28);
    for (std::size_t size = 0; size <= parts.stream.size(); size += 7) {
        const Bytes stream = test::prefix(parts.stream, size);
        const Bytes body = test::plainDecode(stream, parts.bodySize);
        const LoadedCloud cloud =
            test::loadBytes(test::prefix(file, parts.header.size() + 12 + size));
        ASSERT_TRUE(cloud.isLoaded);
        for (std::size_t i = 0; i < 2100; ++i) {
            const bool isThere = i * 8 + 8 <= body.size();
            ASSERT_EQ(cloud.points.Data()[i % 700 * 3 + i / 700],
                      isThere ? test::valueAt<double>(body, i * 8) : 0.0)
                << size << ", " << i;
        }
    }
}
